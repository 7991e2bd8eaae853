// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// A whole viewer for a test, with settings of its own.
#pragma once

#include "../app/AppFixture.h"

#include "app/ImageView.h"
#include "app/MainWindow.h"
#include "viewer/scripts/EditorTabs.h"
#include "viewer/scripts/ScriptEditor.h"
#include "viewer/window/Viewer.h"

#include <QtCore/QFile>
#include <QtCore/QSettings>
#include <QtCore/QTemporaryDir>
#include <QtCore/QTimer>
#include <QtGui/QAction>
#include <QtTest/QTest>

#include <gtest/gtest.h>

#include <memory>

namespace vistrel {

class ViewerTest : public testing::Test {
protected:
    ViewerTest()
    {
        QCoreApplication::setOrganizationName(QStringLiteral("vistrel-test"));
        QSettings::setDefaultFormat(QSettings::IniFormat);
        QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, m_folder.path());
        begin();
    }

    void begin()
    {
        m_viewer = std::make_unique<Viewer>();
        QString error;
        ASSERT_TRUE(m_viewer->loadPlugin(QString(), error)) << qPrintable(error);
        m_viewer->show();
    }

    QString writeFile(const QString& name, const QByteArray& bytes)
    {
        QFile file(m_folder.filePath(name));
        file.open(QIODevice::WriteOnly);
        file.write(bytes);
        return file.fileName();
    }
    QString writePicture(const QString& name)
    {
        return writeFile(name, "P5 2 2 255\n" + QByteArray("\x00\x40\x80\xff", 4));
    }

    QAction* action(const QString& text)
    {
        for (QAction* candidate : m_viewer->window().findChildren<QAction*>())
            if (candidate->text().remove(u'&') == text)
                return candidate;
        ADD_FAILURE() << "no command " << qPrintable(text);
        return nullptr;
    }
    void choose(const QString& text) { action(text)->trigger(); }
    void press(const QKeyCombination& keys)
    {
        QTest::keyClick(&m_viewer->window(), keys.key(), keys.keyboardModifiers());
    }
    /// Makes a call while the next script runs, as soon as that handles events.
    template<typename Call>
    void whenAScriptRuns(Call call)
    {
        QObject::connect(
            &m_viewer->scripts().watch(), &RunWatch::changed, &m_viewer->window(),
            [call] { QTimer::singleShot(0, call); }, Qt::SingleShotConnection);
    }
    ScriptEditor& editor() { return *m_viewer->scripts().tabs().current(); }
    AppDelegate& delegate() { return m_viewer->host().delegate(); }

    const QTemporaryDir m_folder;
    std::unique_ptr<Viewer> m_viewer;
};

} // namespace vistrel
