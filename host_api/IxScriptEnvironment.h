// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// The host's services for one script run: constants, paths, the thread rule, waiting, help texts.
#pragma once

#include <QtCore/QList>
#include <QtCore/QString>

class CxMdiView;
class QMenu;

/// Given to every run by the host, which owns it and keeps it alive until the next run starts or
/// the plugin object is gone.
///
/// The order of the virtual operations is part of the binary interface.
/// Unless an operation says otherwise it is called on the thread that runs scripts.
class IxScriptEnvironment {
public:
    /// A camera parameter's name under the constant's name that scripts see.
    struct SxApiParamDef {
        QString name;
        QString text;
    };
    /// A value of an enumeration parameter under the constant's name that scripts see.
    struct SxApiParamEnumVal {
        QString name;
        int value;
    };

    /// String constants that scripts find in `__main__`; read once, when the interpreter starts.
    /// The list belongs to the environment.
    virtual QList<SxApiParamDef>& apiParamDefs() = 0;
    /// Integer constants that scripts find in `__main__`; read once, when the interpreter starts.
    /// The list belongs to the environment.
    virtual QList<SxApiParamEnumVal>& apiParamEnumVals() = 0;
    /// Whether scripts may use a camera parameter of this name as an attribute (`cam.set_<name>`).
    virtual bool isApiParamName(const QString& name) = 0;

    /// Absolute path of the folder against which script paths are resolved. Any thread.
    virtual QString workingDirectory() = 0;
    /// Turns a path given by a script into the absolute path to use. Any thread.
    virtual QString resolvePath(const QString& path) = 0;
    /// Whether the calling thread may touch the user interface. Any thread.
    virtual bool isGuiThread() = 0;
    /// Adds an entry to a menu that runs a script file when chosen. The menu is not null; `extra`
    /// is a text for the host, empty when the script gave none.
    virtual void addMenuItem(QMenu* menu, const QString& title, const QString& script,
                             const QString& extra) = 0;
    /// Waits for the view's next camera frame and keeps the host's events flowing meanwhile.
    /// @param view     not null.
    /// @param timeout  seconds; a negative number leaves it to the environment.
    /// Returns true when a frame came, false when it did not.
    virtual bool waitForNextFrame(CxMdiView* view, double timeout) = 0;
    /// Waits that many seconds and keeps the host's events flowing meanwhile.
    virtual void wait(double seconds) = 0;

    /// Help text of a module function; null when there is none. UTF-8, owned by the host, valid
    /// for the life of the interpreter.
    virtual const char* functionHelp(const char* module, const char* function) = 0;
    /// Help text of a method; null when there is none. The types are called "cameraObj", "imgObj"
    /// and "graphObj" here. Lifetime as above.
    virtual const char* methodHelp(const char* type, const char* method) = 0;

protected:
    ~IxScriptEnvironment() = default;
};
