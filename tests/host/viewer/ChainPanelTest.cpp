// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// The panel of the active view's chain, with clicks and keys, while the simulated camera streams.
#include "ViewerFixture.h"

#include "viewer/chains/ChainPanel.h"

#include <CxCameraParameters.h>
#include <CxImageData.h>

#include <QtWidgets/QCheckBox>
#include <QtWidgets/QComboBox>
#include <QtWidgets/QDockWidget>
#include <QtWidgets/QDoubleSpinBox>
#include <QtWidgets/QLabel>
#include <QtWidgets/QListWidget>
#include <QtWidgets/QMenu>
#include <QtWidgets/QSpinBox>
#include <QtWidgets/QToolBar>
#include <QtWidgets/QToolButton>

#include <gmock/gmock.h>

#include <algorithm>

namespace vistrel {

using testing::ElementsAre;
using testing::HasSubstr;

namespace {

constexpr int longestMs = 30'000;

class ChainPanelTest : public ViewerTest {
protected:
    void* openCamera()
    {
        QString error;
        CameraManager& cameras = m_viewer->host().cameras();
        void* const camera = cameras.open(QString::fromLatin1(CameraManager::simulatedId), error);
        EXPECT_NE(camera, nullptr) << qPrintable(error);
        return camera;
    }
    /// Opens the camera's live view, 256 pixels wide and 512 high.
    void startCamera()
    {
        void* const camera = openCamera();
        m_viewer->host().cameras().cameraParameters(camera)->setParamDirect(
            QStringLiteral("width"), CxValue::fromInt(256), nullptr, CxCameraParameters::NoRefresh);
        ASSERT_TRUE(delegate().setCameraAcquisition(true, camera));
        ASSERT_TRUE(shows([](const SxPicBuf&) { return true; }));
    }

    /// Whether a picture of that kind comes to the active view.
    bool shows(const std::function<bool(const SxPicBuf&)>& isWanted)
    {
        return QTest::qWaitFor(
            [&] {
                CxImageData* const image = delegate().viewImage(delegate().activeViewId());
                return image && isWanted(*image->picBuf());
            },
            longestMs);
    }
    static std::function<bool(const SxPicBuf&)> only(const QList<int>& values)
    {
        return [values](const SxPicBuf& buffer) {
            return std::all_of(buffer.data, buffer.data + buffer.dataSize(),
                               [&](quint8 value) { return values.contains(value); });
        };
    }
    bool showsBlackAndWhite() { return shows(only({0, 255})); }
    bool showsGreys()
    {
        return shows([](const SxPicBuf& buffer) { return !only({0, 255})(buffer); });
    }

    QWidget& panel() { return *m_viewer->chainDock().widget(); }
    QListWidget& list() { return *panel().findChild<QListWidget*>(); }
    std::vector<std::string> names()
    {
        std::vector<std::string> names;
        for (int row = 0; row < list().count(); ++row)
            names.push_back(list().item(row)->text().toStdString());
        return names;
    }
    std::string title() { return panel().findChild<QLabel*>()->text().toStdString(); }
    template<class Field>
    Field& field(const char* name)
    {
        return *panel().findChild<Field*>(QLatin1String(name));
    }

    QToolButton* tool(const QString& text)
    {
        for (auto* button : panel().findChildren<QToolButton*>())
            if (button->text() == text)
                return button;
        ADD_FAILURE() << "no tool " << qPrintable(text);
        return nullptr;
    }
    void click(const QString& text) { QTest::mouseClick(tool(text), Qt::LeftButton); }
    void clickRow(int row)
    {
        QTest::mouseClick(list().viewport(), Qt::LeftButton, {},
                          list().visualItemRect(list().item(row)).center());
    }
    void clickTick(int row)
    {
        const QRect place = list().visualItemRect(list().item(row));
        QTest::mouseClick(list().viewport(), Qt::LeftButton, {},
                          QPoint(place.left() + 8, place.center().y()));
    }
    void add(const QString& name)
    {
        QTimer::singleShot(0, [name] { // the open menu handles events of its own
            auto* const menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
            ASSERT_NE(menu, nullptr);
            for (QAction* entry : menu->actions())
                if (entry->text() == name)
                    QTest::mouseClick(menu, Qt::LeftButton, {},
                                      menu->actionGeometry(entry).center());
        });
        click(QStringLiteral("Add"));
    }
    static void type(QWidget& field, const QString& text)
    {
        QTest::keyClick(&field, Qt::Key_A, Qt::ControlModifier);
        QTest::keyClicks(&field, text);
        QTest::keyClick(&field, Qt::Key_Return);
    }
};

} // namespace

TEST_F(ChainPanelTest, AddsAnElementWhileFramesStream)
{
    startCamera();
    EXPECT_TRUE(showsGreys());
    EXPECT_THAT(title(), HasSubstr("shows its pictures as they are"));
    add(QStringLiteral("Threshold"));
    EXPECT_THAT(names(), ElementsAre("Threshold"));
    EXPECT_TRUE(showsBlackAndWhite());
    EXPECT_THAT(title(), HasSubstr("go through"));
}

TEST_F(ChainPanelTest, OffersEveryElementThatCanBeMade)
{
    QStringList offered;
    for (const QAction* entry : tool(QStringLiteral("Add"))->menu()->actions())
        offered.append(entry->text());
    EXPECT_GE(offered.size(), 8);
    EXPECT_TRUE(offered.contains(QStringLiteral("Background Subtraction")));
    EXPECT_FALSE(offered.contains(QStringLiteral("View"))); // the chain's own end
}

TEST_F(ChainPanelTest, RemovesTheSelectedElementWhileFramesStream)
{
    startCamera();
    add(QStringLiteral("Threshold"));
    add(QStringLiteral("Flip"));
    ASSERT_TRUE(showsBlackAndWhite());
    clickRow(0);
    click(QStringLiteral("Remove"));
    EXPECT_THAT(names(), ElementsAre("Flip"));
    EXPECT_TRUE(showsGreys());
}

TEST_F(ChainPanelTest, SwitchesAnElementOffAndOnWhileFramesStream)
{
    startCamera();
    add(QStringLiteral("Threshold"));
    ASSERT_TRUE(showsBlackAndWhite());
    clickTick(0);
    EXPECT_TRUE(showsGreys());
    clickTick(0);
    EXPECT_TRUE(showsBlackAndWhite());
}

TEST_F(ChainPanelTest, MovesAnElementUpAndDownWhileFramesStream)
{
    startCamera();
    add(QStringLiteral("Threshold"));
    add(QStringLiteral("Gaussian Blur"));
    ASSERT_TRUE(showsGreys()); // edges, softened behind the threshold
    click(QStringLiteral("Up"));
    EXPECT_THAT(names(), ElementsAre("Gaussian Blur", "Threshold"));
    EXPECT_TRUE(showsBlackAndWhite());
    click(QStringLiteral("Down")); // the moved one is still selected
    EXPECT_THAT(names(), ElementsAre("Threshold", "Gaussian Blur"));
    EXPECT_TRUE(showsGreys());
}

TEST_F(ChainPanelTest, OffersOnlyMovesThatArePossible)
{
    m_viewer->openFile(writePicture(QStringLiteral("a.pgm")));
    EXPECT_FALSE(tool(QStringLiteral("Remove"))->isEnabled());
    add(QStringLiteral("Flip"));
    add(QStringLiteral("Gamma"));
    EXPECT_TRUE(tool(QStringLiteral("Up"))->isEnabled());
    EXPECT_FALSE(tool(QStringLiteral("Down"))->isEnabled());
    clickRow(0);
    EXPECT_FALSE(tool(QStringLiteral("Up"))->isEnabled());
    EXPECT_TRUE(tool(QStringLiteral("Down"))->isEnabled());
}

TEST_F(ChainPanelTest, ChangesANumberAndKeepsItWhenASwitchIsChanged)
{
    startCamera();
    add(QStringLiteral("Threshold"));
    type(field<QDoubleSpinBox>("level"), QStringLiteral("300"));
    EXPECT_TRUE(shows(only({0})));
    QTest::mouseClick(&field<QCheckBox>("invert"), Qt::LeftButton, {}, QPoint(8, 8));
    EXPECT_TRUE(shows(only({255})));
}

TEST_F(ChainPanelTest, ChangesAChoiceWhileFramesStream)
{
    startCamera();
    add(QStringLiteral("Rotate"));
    ASSERT_TRUE(shows([](const SxPicBuf& buffer) { return buffer.width == 512; }));
    QTest::keyClick(&field<QComboBox>("angle"), Qt::Key_Down);
    EXPECT_EQ(field<QComboBox>("angle").currentText(), QStringLiteral("180"));
    EXPECT_TRUE(shows([](const SxPicBuf& buffer) { return buffer.width == 256; }));
}

TEST_F(ChainPanelTest, LetsInNoNumberBeyondItsLimits)
{
    m_viewer->openFile(writePicture(QStringLiteral("a.pgm")));
    add(QStringLiteral("Frame Average"));
    auto& frames = field<QSpinBox>("frames");
    EXPECT_EQ(frames.value(), 8);
    EXPECT_THAT(frames.toolTip().toStdString(), HasSubstr("a whole number from 2 to 1000"));
    type(frames, QStringLiteral("5000"));
    EXPECT_LE(frames.value(), 1000);
    type(frames, QStringLiteral("12"));
    const Chain& chain = delegate().imageView(delegate().activeViewId())->chain();
    EXPECT_EQ(chain.elements().front()->settings().whole(QLatin1String("frames")), 12);
}

TEST_F(ChainPanelTest, ShowsTheSettingsOfTheSelectedElementAlone)
{
    m_viewer->openFile(writePicture(QStringLiteral("a.pgm")));
    add(QStringLiteral("Gamma"));
    add(QStringLiteral("Flip"));
    EXPECT_NE(panel().findChild<QComboBox*>(QStringLiteral("direction")), nullptr);
    EXPECT_EQ(panel().findChild<QDoubleSpinBox*>(QStringLiteral("gamma")), nullptr);
    clickRow(0);
    EXPECT_EQ(panel().findChild<QComboBox*>(QStringLiteral("direction")), nullptr);
    EXPECT_DOUBLE_EQ(field<QDoubleSpinBox>("gamma").value(), 2.2);
}

TEST_F(ChainPanelTest, FollowsTheActiveView)
{
    m_viewer->openFile(writePicture(QStringLiteral("first.pgm")));
    const int first = delegate().activeViewId();
    add(QStringLiteral("Flip"));
    m_viewer->openFile(writePicture(QStringLiteral("second.pgm")));
    EXPECT_TRUE(names().empty());
    EXPECT_THAT(title(), HasSubstr("second.pgm"));
    add(QStringLiteral("Gamma"));
    delegate().activateView(first);
    EXPECT_THAT(names(), ElementsAre("Flip"));
    EXPECT_THAT(title(), HasSubstr("first.pgm"));
}

TEST_F(ChainPanelTest, ShowsNothingWhenTheLastViewIsClosed)
{
    m_viewer->openFile(writePicture(QStringLiteral("a.pgm")));
    add(QStringLiteral("Flip"));
    delegate().view(delegate().activeViewId())->closeMdiView();
    EXPECT_TRUE(names().empty());
    EXPECT_EQ(title(), "No view is open.");
    EXPECT_FALSE(tool(QStringLiteral("Add"))->isEnabled());
    EXPECT_EQ(panel().findChild<QComboBox*>(QStringLiteral("direction")), nullptr);
}

TEST_F(ChainPanelTest, ShowsWhatAScriptAddsAndHowItIsSet)
{
    startCamera();
    editor().setText(QStringLiteral("import vistrel\n"
                                    "vistrel.add_chain_object('Median', {})\n"
                                    "vistrel.add_chain_object('Threshold', {'level': 300})\n"));
    choose(QStringLiteral("Run"));
    EXPECT_THAT(names(), ElementsAre("Median", "Threshold"));
    clickRow(1);
    EXPECT_DOUBLE_EQ(field<QDoubleSpinBox>("level").value(), 300);
    EXPECT_EQ(field<QDoubleSpinBox>("level").text(), QStringLiteral("300"));
    EXPECT_TRUE(shows(only({0})));
}

TEST_F(ChainPanelTest, WorksByKeys)
{
    m_viewer->openFile(writePicture(QStringLiteral("a.pgm")));
    editor().setText(QStringLiteral("import vistrel\n"
                                    "vistrel.add_chain_object('Flip', {})\n"
                                    "vistrel.add_chain_object('Median', {})\n"));
    choose(QStringLiteral("Run"));
    m_viewer->window().activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&m_viewer->window()));
    list().setFocus();
    list().setCurrentRow(1);
    QTest::keyClick(&list(), Qt::Key_Up, Qt::ControlModifier);
    EXPECT_THAT(names(), ElementsAre("Median", "Flip"));
    QTest::keyClick(&list(), Qt::Key_Space);
    EXPECT_EQ(list().item(0)->checkState(), Qt::Unchecked);
    QTest::keyClick(&list(), Qt::Key_Down, Qt::ControlModifier);
    EXPECT_THAT(names(), ElementsAre("Flip", "Median"));
    QTest::keyClick(&list(), Qt::Key_Delete);
    EXPECT_THAT(names(), ElementsAre("Flip"));
}

TEST_F(ChainPanelTest, AddsAnElementByKeys)
{
    m_viewer->openFile(writePicture(QStringLiteral("a.pgm")));
    m_viewer->window().activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&m_viewer->window()));
    list().setFocus();
    QTimer chooser; // the open menu handles events of its own
    QObject::connect(&chooser, &QTimer::timeout, [&chooser] {
        QWidget* const menu = QApplication::activePopupWidget();
        if (!menu)
            return;
        chooser.stop();
        QTest::keyClick(menu, Qt::Key_Down);
        QTest::keyClick(menu, Qt::Key_Return);
    });
    chooser.start(20);
    QTest::keyClick(&list(), Qt::Key_Insert);
    ASSERT_TRUE(QTest::qWaitFor([&] { return list().count() == 1; }, longestMs));
    EXPECT_THAT(names(), ElementsAre("Gaussian Blur"));
}

TEST_F(ChainPanelTest, KeepsItsElementsWhenATextIsDeletedInAField)
{
    m_viewer->openFile(writePicture(QStringLiteral("a.pgm")));
    m_viewer->window().activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&m_viewer->window()));
    add(QStringLiteral("Median"));
    auto& radius = field<QSpinBox>("radius");
    radius.setFocus();
    radius.selectAll();
    QTest::keyClick(&radius, Qt::Key_Delete);
    EXPECT_THAT(names(), ElementsAre("Median"));
}

} // namespace vistrel
