// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// A whole host for a test, and what its tests have in common.
#pragma once

#include "app/HostApplication.h"
#include "app/ImageView.h"

#include <CxImageData.h>
#include <CxPicBufAPI.h>

#include <QtCore/QCoreApplication>
#include <QtCore/QDeadlineTimer>
#include <QtCore/QEvent>
#include <QtCore/QMutex>
#include <QtCore/QStringList>

#include <gtest/gtest.h>

#include <cstring>

namespace vistrel {

/// Handles events until something holds; false when it does not within half a minute.
template<typename Condition>
bool handleEventsUntil(Condition holds)
{
    const QDeadlineTimer deadline(30000);
    while (!holds()) {
        if (deadline.hasExpired())
            return false;
        QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
    return true;
}

/// An image in which every byte has the same value.
inline std::unique_ptr<CxImageData> makeImage(unsigned width, unsigned height, int byte,
                                              ExImageDataType type = ExImageDataType::UInt8,
                                              unsigned bpc = 8, unsigned channels = 1)
{
    SxPicBuf buffer;
    CxPicBufAPI::AllocPicBufFromHeap(buffer, width, height, channels, type, 0, 0, bpc,
                                     ExDataStorageFormat::Interleaved, ExColorFilterArray::None,
                                     true, true, 0);
    std::memset(buffer.data, byte, buffer.dataSize());
    auto image = std::make_unique<CxImageData>();
    image->setPicBuf(buffer);
    return image;
}

/// The first byte of an image.
inline int firstByte(CxImageData* image) { return image->picBuf()->data[0]; }

/// Takes the log while it lives.
class LogLines {
public:
    LogLines()
    {
        s_lines.clear();
        m_previous = qInstallMessageHandler(&LogLines::take);
    }
    ~LogLines() { qInstallMessageHandler(m_previous); }
    Q_DISABLE_COPY_MOVE(LogLines)

    QStringList errors() const
    {
        const QMutexLocker lock(&s_mutex);
        return s_lines;
    }

private:
    static void take(QtMsgType type, const QMessageLogContext&, const QString& line)
    {
        const QMutexLocker lock(&s_mutex);
        if (type == QtCriticalMsg)
            s_lines.append(line);
    }

    static inline QMutex s_mutex;
    static inline QStringList s_lines;
    QtMessageHandler m_previous = nullptr;
};

class HostTest : public testing::Test {
protected:
    /// Opens a view on a small image and returns its id.
    int openView(int byte = 1)
    {
        EXPECT_TRUE(app.newViewWithImage(makeImage(8, 4, byte).release(), QStringLiteral("view")));
        return app.activeViewId();
    }

    HostApplication host;
    AppDelegate& app = host.delegate();
    ScriptEnvironment& environment = host.environment();
};

} // namespace vistrel
