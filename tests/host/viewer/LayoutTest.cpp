// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// The main window as its users see it, compared with pictures that are kept.
//
// The pictures are in VISTREL_LAYOUT. With VISTREL_RENEW_LAYOUT set they are written anew
// (scripts/renew_layout.sh); look at them before they are kept.
#include "ViewerFixture.h"

#include "viewer/window/Theme.h"

#include <QtCore/QDir>
#include <QtCore/QTemporaryFile>
#include <QtGui/QFont>
#include <QtGui/QImage>
#include <QtWidgets/QApplication>
#include <QtWidgets/QDockWidget>

#include <cstdlib>

namespace vistrel {

namespace {

// Fonts and the rounding of edges differ a little between versions of the libraries.
constexpr int strongDifference = 64;
constexpr double mostStrongDifferences = 0.003;

bool differStrongly(QRgb one, QRgb other)
{
    return std::abs(qRed(one) - qRed(other)) > strongDifference
           || std::abs(qGreen(one) - qGreen(other)) > strongDifference
           || std::abs(qBlue(one) - qBlue(other)) > strongDifference;
}

/// The share of the pixels that differ strongly; all of them in pictures of different sizes.
double differenceOf(const QImage& one, const QImage& other)
{
    if (one.size() != other.size())
        return 1.0;
    int strong = 0;
    for (int y = 0; y < one.height(); ++y)
        for (int x = 0; x < one.width(); ++x)
            strong += differStrongly(one.pixel(x, y), other.pixel(x, y)) ? 1 : 0;
    return static_cast<double>(strong) / (one.width() * one.height());
}

class Layout : public ViewerTest {
protected:
    Layout()
    {
        QApplication::setFont(QFont(QStringLiteral("DejaVu Sans"), 9));
        m_viewer->window().resize(1280, 800);
        m_viewer->openFile(writeFile(QStringLiteral("ramp.pgm"), ramp()));
        m_viewer->openFile(writeFile(QStringLiteral("profile.py"),
                                     "import vistrel\n\nimage = vistrel.get_view_image()\n"
                                     "print(image.width, image.height)\n"));
    }
    static QByteArray ramp()
    {
        QByteArray file = "P5 320 200 255\n";
        for (int y = 0; y < 200; ++y)
            for (int x = 0; x < 320; ++x)
                file.append(static_cast<char>((x + y) / 3));
        return file;
    }

    QImage look()
    {
        QTest::qWait(300); // layouts settle
        return m_viewer->window().grab().toImage().convertToFormat(QImage::Format_RGB32);
    }
    /// Compares the window with the picture of that name, or keeps it under that name.
    void compare(const QString& name)
    {
        const QString path = QStringLiteral(VISTREL_LAYOUT "/") + name;
        const QImage seen = look();
        if (qEnvironmentVariableIsSet("VISTREL_RENEW_LAYOUT")) {
            ASSERT_TRUE(seen.save(path));
            return;
        }
        const QImage kept(path);
        const double difference = differenceOf(seen, kept);
        EXPECT_LE(difference, mostStrongDifferences)
            << qPrintable(path) << " is not what is seen now: " << qPrintable(keptForALook(seen));
    }
    /// The name of a file of its own.
    static QString keptForALook(const QImage& seen)
    {
        QTemporaryFile file(QDir::temp().filePath(QStringLiteral("vistrel-layout-XXXXXX.png")));
        file.setAutoRemove(false);
        EXPECT_TRUE(file.open() && seen.save(&file, "PNG"));
        return file.fileName();
    }
};

} // namespace

TEST_F(Layout, IsTheOneThatIsKept)
{
    setDarkTheme(false);
    compare(QStringLiteral("light.png"));
}

TEST_F(Layout, IsTheSameInTheDark)
{
    setDarkTheme(true);
    compare(QStringLiteral("dark.png"));
}

TEST_F(Layout, IsSeenToChangeWhenAPanelGoes)
{
    setDarkTheme(false);
    const QImage before = look();
    m_viewer->chainDock().hide();
    EXPECT_GT(differenceOf(before, look()), mostStrongDifferences);
}

} // namespace vistrel
