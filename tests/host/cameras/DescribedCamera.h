// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// A simulated camera that describes itself otherwise: its GenICam text with some parts replaced.
#pragma once

#include "CameraFixtures.h"

#include <QtCore/QFile>
#include <QtCore/QTemporaryDir>

#include <arv.h>

#include <utility>
#include <vector>

namespace vistrel::test {

using Replacements = std::vector<std::pair<const char*, const char*>>;

/// Makes Aravis' simulated camera describe itself by another text, for the devices to come.
class Description {
public:
    explicit Description(const Replacements& replacements)
    {
        QByteArray text = original();
        for (const auto& [part, replacement] : replacements)
            text.replace(part, replacement);
        QFile file(m_folder.filePath(QStringLiteral("camera.xml")));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly) && file.write(text) == text.size());
        arv_set_fake_camera_genicam_filename(file.fileName().toUtf8().constData());
    }
    ~Description() { arv_set_fake_camera_genicam_filename(nullptr); }
    Description(const Description&) = delete;
    Description& operator=(const Description&) = delete;

private:
    static QByteArray original()
    {
        ArvFakeCamera* camera = arv_fake_camera_new("1");
        std::size_t size = 0;
        const char* text = arv_fake_camera_get_genicam_xml(camera, &size);
        const QByteArray copy(text, static_cast<qsizetype>(size));
        g_object_unref(camera);
        return copy;
    }

    QTemporaryDir m_folder;
};

struct DescribedCameraTest : CameraTest {
    explicit DescribedCameraTest(const Replacements& replacements)
        : description(replacements)
        , camera(openSimulated())
    {
    }

    Description description;
    void* camera;
    LogCapture log;
};

} // namespace vistrel::test
