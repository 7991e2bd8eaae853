// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// A camera's parameters in the panel, driven with clicks and keys, on simulated cameras.
#include "ShownFeatures.h"

#include "../app/AppFixture.h"
#include "../cameras/DescribedCamera.h"

#include <QtCore/QSettings>
#include <QtCore/QTemporaryDir>
#include <QtWidgets/QCheckBox>
#include <QtWidgets/QComboBox>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QScrollArea>
#include <QtWidgets/QScrollBar>
#include <QtWidgets/QSlider>

#include <gmock/gmock.h>

#include <optional>

namespace vistrel {

using testing::AllOf;
using testing::HasSubstr;
using testing::Not;

namespace {

/// Gain up to the width; a boolean among the features; an exposure that is not there while the
/// boolean is off; an offset that cannot be read.
const test::Replacements oddities = {
    {"<Max>10</Max>\n\t</Integer>", "<pMax>Width</pMax>\n\t</Integer>"},
    {"<pFeature>TestRegister</pFeature>",
     "<pFeature>TestRegister</pFeature><pFeature>TestBoolean</pFeature>"
     "<pFeature>TestStringReg</pFeature>"},
    {"<pValue>ExposureTimeAbsConverter</pValue>",
     "<pIsAvailable>TestBoolean</pIsAvailable><pValue>ExposureTimeAbsConverter</pValue>"},
};

class ParametersShown : public HostTest {
protected:
    explicit ParametersShown(const test::Replacements& replacements = {})
    {
        if (!replacements.empty())
            m_description.emplace(replacements);
        QCoreApplication::setOrganizationName(QStringLiteral("vistrel-test"));
        QSettings::setDefaultFormat(QSettings::IniFormat);
        QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, m_folder.path());
        QString error;
        camera = host.cameras().open(QString::fromLatin1(CameraManager::simulatedId), error);
        EXPECT_NE(camera, nullptr) << qPrintable(error);
        panel.resize(420, 900);
        panel.show();
        panel.showCamera(camera);
        settle();
    }

    CxCameraParameters& parameters() { return *host.cameras().cameraParameters(camera); }
    double read(const char* name)
    {
        CxValue value;
        parameters().getParamDirect(QString::fromLatin1(name), value, nullptr);
        return static_cast<double>(value.toFloat());
    }
    QString readText(const char* name)
    {
        CxValue value;
        parameters().getParamDirect(QString::fromLatin1(name), value, nullptr);
        return value.toString();
    }
    bool set(const char* name, int value)
    {
        return parameters().setParamDirect(QString::fromLatin1(name), CxValue::fromInt(value),
                                           nullptr, CxCameraParameters::NoRefresh);
    }
    /// Lays everything out and reads what is in sight.
    void settle()
    {
        QCoreApplication::processEvents();
        panel.refresh();
    }

    std::optional<test::Description> m_description;
    QTemporaryDir m_folder;
    void* camera = nullptr;
    ParameterPanel panel{host.cameras()};
};

/// Gain up to the width, and an exposure time that is there only while a switch is on.
class OddParametersShown : public ParametersShown {
protected:
    OddParametersShown()
        : ParametersShown(oddities)
    {
        clickHeading(panel, QStringLiteral("Debug"));
        settle();
    }
};

const QString gain = QStringLiteral("gain_db");
const QString width = QStringLiteral("width");
const QString format = QStringLiteral("image_data_format");
const QString exposure = QStringLiteral("exposure_time_us");

} // namespace

TEST_F(ParametersShown, BeginWithTheHostsNamesAndGoOnWithTheCamerasHeadings)
{
    QStringList headings;
    for (const QToolButton* button : panel.findChildren<QToolButton*>())
        if (button->isCheckable())
            headings.append(button->text());
    EXPECT_EQ(headings.value(0), QStringLiteral("Common"));
    EXPECT_TRUE(headings.contains(QStringLiteral("ImageFormatControl")));
    EXPECT_NE(panel.row(width), nullptr);
    EXPECT_EQ(panel.row(QStringLiteral("black_level")), nullptr); // which the camera lacks
    EXPECT_EQ(panel.row(QStringLiteral("SensorWidth")), nullptr);
    clickHeading(panel, QStringLiteral("ImageFormatControl"));
    EXPECT_NE(panel.row(QStringLiteral("SensorWidth")), nullptr);
}

TEST_F(ParametersShown, HaveValueUnitAndLimits)
{
    EXPECT_EQ(fieldOf(panel, width).text(), QStringLiteral("512"));
    EXPECT_THAT(textsOf(panel, width), HasSubstr("px"));
    EXPECT_THAT(textsOf(panel, exposure), HasSubstr("us"));
    EXPECT_THAT(panel.row(width)->toolTip().toStdString(), HasSubstr("from 1 to 2048"));
}

TEST_F(ParametersShown, TakeAValueThatIsTyped)
{
    enter(panel, gain, QStringLiteral("7"));
    EXPECT_EQ(read("gain_db"), 7.0);
    EXPECT_EQ(fieldOf(panel, gain).text(), QStringLiteral("7"));
}

TEST_F(ParametersShown, SayWhyAValueWasRefusedAndShowTheTrueOneAgain)
{
    const LogLines log;
    enter(panel, gain, QStringLiteral("99"));
    EXPECT_EQ(read("gain_db"), 0.0);
    EXPECT_EQ(fieldOf(panel, gain).text(), QStringLiteral("0"));
    EXPECT_THAT(textsOf(panel, gain),
                HasSubstr("Not set to 99: it takes values from 0 to 10 in steps of 1."));
    EXPECT_THAT(log.errors().join(u'|').toStdString(), HasSubstr("gain_db cannot be set to 99"));
    enter(panel, gain, QStringLiteral("loud"));
    EXPECT_THAT(textsOf(panel, gain), HasSubstr("Not set to loud: it takes a"));
    EXPECT_EQ(fieldOf(panel, gain).text(), QStringLiteral("0"));
    enter(panel, gain, QStringLiteral("3"));
    EXPECT_THAT(textsOf(panel, gain), Not(HasSubstr("Not set")));
}

TEST_F(ParametersShown, StepByTheKeysWithinTheLimits)
{
    QLineEdit& field = fieldOf(panel, gain);
    for (int i = 0; i < 12; ++i)
        QTest::keyClick(&field, Qt::Key_Up);
    EXPECT_EQ(read("gain_db"), 10.0);
    QTest::keyClick(&field, Qt::Key_Down);
    EXPECT_EQ(read("gain_db"), 9.0);
    EXPECT_THAT(textsOf(panel, gain), Not(HasSubstr("Not set")));
}

TEST_F(ParametersShown, FollowTheSlider)
{
    auto& slider = partOf<QSlider>(panel, gain);
    QTest::keyClick(&slider, Qt::Key_End);
    EXPECT_TRUE(handleEventsUntil([this] { return read("gain_db") == 10.0; }));
    QTest::keyClick(&slider, Qt::Key_Left);
    EXPECT_TRUE(handleEventsUntil([this] { return read("gain_db") == 9.0; }));
    EXPECT_EQ(fieldOf(panel, gain).text(), QStringLiteral("9"));
}

TEST_F(ParametersShown, AreNotChangedByScrollingPastThem)
{
    auto& slider = partOf<QSlider>(panel, gain);
    panel.setFocus();
    QWheelEvent wheel(QPointF(5, 5), slider.mapToGlobal(QPointF(5, 5)), QPoint(), QPoint(0, 120),
                      Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(&slider, &wheel);
    EXPECT_EQ(slider.value(), 0);
    EXPECT_FALSE(wheel.isAccepted());
}

TEST_F(ParametersShown, OfferTheEntriesOfAnEnumeration)
{
    auto& box = partOf<QComboBox>(panel, format);
    EXPECT_EQ(box.currentText(), QStringLiteral("MONO8"));
    EXPECT_GE(box.findText(QStringLiteral("RGB8")), 0);
    EXPECT_EQ(box.findText(QStringLiteral("MONO12")), -1); // which the camera lacks
    box.setFocus();
    QTest::keyClicks(&box, QStringLiteral("RGB8"));
    QTest::keyClick(&box, Qt::Key_Return);
    EXPECT_EQ(readText("PixelFormat"), QStringLiteral("RGB8"));
    EXPECT_EQ(box.currentText(), QStringLiteral("RGB8"));
}

TEST_F(ParametersShown, ShowASwitchAsACheckBox)
{
    auto& box = partOf<QCheckBox>(panel, QStringLiteral("auto_gain"));
    EXPECT_FALSE(box.isChecked());
    QTest::mouseClick(&box, Qt::LeftButton, {}, QPoint(8, box.height() / 2));
    EXPECT_EQ(readText("GainAuto"), QStringLiteral("Continuous"));
    EXPECT_TRUE(box.isChecked());
}

TEST_F(ParametersShown, ExecuteACommandByItsButton)
{
    ASSERT_TRUE(set("trigger_mode", 1));
    ASSERT_TRUE(app.setCameraAcquisition(true, camera));
    clickHeading(panel, QStringLiteral("AcquisitionControl"));
    panel.filter().setText(QStringLiteral("TriggerSoftware"));
    settle();
    QTest::mouseClick(&partOf<QPushButton>(panel, QStringLiteral("TriggerSoftware")),
                      Qt::LeftButton);
    EXPECT_TRUE(
        handleEventsUntil([this] { return host.cameras().statistics(camera).framesTaken >= 1; }));
    EXPECT_THAT(textsOf(panel, QStringLiteral("TriggerSoftware")), Not(HasSubstr("Not executed")));
}

TEST_F(ParametersShown, MayBeReadOnly)
{
    clickHeading(panel, QStringLiteral("ImageFormatControl"));
    panel.filter().setText(QStringLiteral("SensorWidth"));
    settle();
    const QLineEdit& field = fieldOf(panel, QStringLiteral("SensorWidth"));
    EXPECT_EQ(field.text(), QStringLiteral("2048"));
    EXPECT_TRUE(field.isReadOnly());
    EXPECT_FALSE(partOf<QSlider>(panel, QStringLiteral("SensorWidth")).isVisible());
}

TEST_F(ParametersShown, AreFiltered)
{
    panel.filter().setFocus();
    QTest::keyClicks(&panel.filter(), QStringLiteral("exposure"));
    EXPECT_TRUE(panel.row(exposure)->isVisible());
    EXPECT_FALSE(panel.row(gain)->isVisible());
    ASSERT_NE(panel.row(QStringLiteral("ExposureTimeAbs")), nullptr); // under a closed heading
    EXPECT_TRUE(panel.row(QStringLiteral("ExposureTimeAbs"))->isVisible());
    panel.filter().clear();
    EXPECT_TRUE(panel.row(gain)->isVisible());
    EXPECT_FALSE(panel.row(QStringLiteral("ExposureTimeAbs"))->isVisible());
}

TEST_F(ParametersShown, FollowAScript)
{
    ASSERT_TRUE(set("gain_db", 4));
    EXPECT_TRUE(
        handleEventsUntil([this] { return fieldOf(panel, gain).text() == QStringLiteral("4"); }));
}

TEST_F(ParametersShown, LeaveAloneWhatSomebodyIsTyping)
{
    QLineEdit& field = fieldOf(panel, gain);
    field.selectAll();
    QTest::keyClicks(&field, QStringLiteral("8"));
    ASSERT_TRUE(set("gain_db", 4));
    settle();
    EXPECT_EQ(field.text(), QStringLiteral("8"));
    QTest::keyClick(&field, Qt::Key_Escape);
    EXPECT_EQ(field.text(), QStringLiteral("4"));
    EXPECT_EQ(read("gain_db"), 4.0);
}

TEST_F(ParametersShown, KeepTheSelectedTriggerWhileTheModeIsShown)
{
    ASSERT_TRUE(parameters().setParamDirect(QStringLiteral("TriggerSelector"),
                                            CxValue::fromString(QStringLiteral("AcquisitionStart")),
                                            nullptr, CxCameraParameters::NoRefresh));
    settle();
    EXPECT_EQ(readText("TriggerSelector"), QStringLiteral("AcquisitionStart"));
}

TEST_F(ParametersShown, GoWithTheirCamera)
{
    host.cameras().close(camera);
    EXPECT_EQ(panel.camera(), nullptr);
    EXPECT_EQ(panel.row(gain), nullptr);
    settle();
}

TEST_F(OddParametersShown, HaveALimitThatMovesWithAnotherOne)
{
    enter(panel, gain, QStringLiteral("600"));
    EXPECT_THAT(textsOf(panel, gain), HasSubstr("from 0 to 512"));
    enter(panel, width, QStringLiteral("1024"));
    EXPECT_TRUE(handleEventsUntil(
        [this] { return panel.row(gain)->toolTip().contains(QStringLiteral("from 0 to 1024")); }));
    enter(panel, gain, QStringLiteral("600"));
    EXPECT_EQ(read("gain_db"), 600.0);
    EXPECT_THAT(textsOf(panel, gain), Not(HasSubstr("Not set")));
}

TEST_F(OddParametersShown, ThatCannotBeReadBreakNothing)
{
    EXPECT_THAT(panel.row(exposure)->toolTip().toStdString(),
                HasSubstr("It cannot be read: it is not available now."));
    EXPECT_EQ(fieldOf(panel, exposure).text(), QString());
    EXPECT_TRUE(fieldOf(panel, exposure).isReadOnly());
    EXPECT_EQ(fieldOf(panel, width).text(), QStringLiteral("512"));
    auto& box = partOf<QCheckBox>(panel, QStringLiteral("TestBoolean"));
    QTest::mouseClick(&box, Qt::LeftButton, {}, QPoint(8, box.height() / 2));
    EXPECT_TRUE(handleEventsUntil([this] { return !fieldOf(panel, exposure).text().isEmpty(); }));
    EXPECT_FALSE(fieldOf(panel, exposure).isReadOnly());
}

TEST_F(OddParametersShown, MayBeTexts)
{
    const QString name = QStringLiteral("TestStringReg");
    enter(panel, name, QStringLiteral("left bench"));
    EXPECT_EQ(readText("TestStringReg"), QStringLiteral("left bench"));
    EXPECT_EQ(fieldOf(panel, name).text(), QStringLiteral("left bench"));
}

} // namespace vistrel
