// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// The parameters of one opened camera: its GenICam nodes by name, and the region of interest.
#pragma once

#include <CxCameraParameters.h>

#include <arv.h>

#include <functional>

namespace vistrel {

class CameraStream;

/// What getParamDirect() and setParamDirect() report through their status.
enum class ParameterStatus : int {
    Done = 0,
    Unknown = 1,       ///< the camera has no parameter of that name
    WrongType = 2,     ///< the parameter does not take, or give, such a value
    OutOfRange = 3,    ///< below the least, above the greatest, or no entry of the enumeration
    NotAccessible = 4, ///< not readable, or not writable, at all or now
    Disconnected = 5,  ///< the connection to the camera broke
    Refused = 6,       ///< anything else that the camera or the way to it reports
};

/// Whether the camera answers at all. Any thread.
using ConnectionProbe = std::function<bool()>;

class CameraParameters final : public CxCameraParameters {
public:
    /// @param camera, stream  outlive this object.
    CameraParameters(ArvCamera* camera, CameraStream& stream, SxCameraInfo info,
                     ConnectionProbe connected);
    ~CameraParameters() override;

    const SxCameraInfo& cameraInfo() const override { return m_info; }

    CxCameraParam* findParam(const QString& name, bool includeHidden) override;
    bool getParamDirect(const QString& name, CxValue& value, int* status) override;
    /// An integer, float or boolean goes to every kind of number; a text goes to texts, to
    /// enumerations as an entry's name, and to numbers when it reads as one. Every value executes a
    /// command. Parameters that change the size of a frame restart a running stream.
    bool setParamDirect(const QString& name, const CxValue& value, int* status,
                        ExCommitRefreshGuiMode mode) override;

    /// Empty when the camera cannot tell.
    QRect currentROIRectParams() override;
    /// Restarts a running stream. A region that the camera refuses is logged and leaves the one
    /// it has.
    void setROIRectParams(int x, int y, int width, int height, bool refreshGui) override;

    bool saveParamValuesToFile(const QString& path,
                               CxCameraParam::ExVisibility visibility) override;
    bool loadParamValuesFromFile(const QString& path, CxCameraParam::ExVisibility visibility,
                                 QList<QString>* messages, bool logErrors) override;

    void notifyShadingChanged() override;

private:
    void whileStreamPaused(const std::function<void()>& change);
    void logLine(const QString& text) const;

    ArvCamera* m_camera;
    CameraStream& m_stream;
    SxCameraInfo m_info;
    ConnectionProbe m_connected;
};

} // namespace vistrel
