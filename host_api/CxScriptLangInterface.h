// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// The interface through which the host drives a script-language plugin: ask it for its version,
// run a script text in it, put an image into the scripts' namespace.
#pragma once

#include <QtCore/QString>
#include <QtCore/QtPlugin>

class CxImageData;
class IxScriptEnvironment;

/// A provider of one script language, implemented by a plugin and called by the host.
///
/// The order of the virtual operations is part of the binary interface: host and plugin are built
/// apart from each other. Every operation is called from one and the same host thread.
class CxScriptLangInterface {
public:
    /// Called once per run, right before the script starts: hook(nullptr, userData).
    using StartHook = void (*)(void* reserved, void* userData);
    /// Receives standard output, one call for each write of the script; the flag is always false.
    /// Called on the thread that writes, which may be one that the script has started.
    using OutputCallback = void (*)(const QString& text, bool reserved);

    /// Stops the interpreter if it was started. The host owns the plugin object.
    virtual ~CxScriptLangInterface() = default;

    /// Prepares the object; called once, before the first run. Starts no interpreter.
    /// Returns false when the plugin cannot be used.
    virtual bool init() = 0;

    /// Name and version of the language, for example "Python 3.11.2". Works before any run.
    virtual QString languageVersion() = 0;

    /// Runs a script text to its end and returns all that it wrote to standard error, tracebacks
    /// included; an empty text means that it wrote nothing there.
    ///
    /// One run at a time: a call from another thread waits for the end of the run; a call from
    /// within a run, by its callbacks or by events that are handled while a script waits, is
    /// refused with a text.
    ///
    /// @param script          source text.
    /// @param env             the host's services for this run; never null; must stay valid until
    ///                        the next run starts or the plugin object is gone, because scripts
    ///                        may leave threads and exit functions behind.
    /// @param pythonHome      folder of the interpreter's standard library, used by the run that
    ///                        starts the interpreter; empty: the interpreter's own default.
    /// @param startHook       may be null.
    /// @param userData        handed to startHook as it is; may be null.
    /// @param outputCallback  may be null: output then goes to the process's standard output.
    virtual QString runScript(const QString& script, IxScriptEnvironment* env,
                              const QString& pythonHome, StartHook startHook, void* userData,
                              OutputCallback outputCallback) = 0;

    /// Binds a host image to a name that scripts see. The host keeps the image's ownership: it must
    /// outlive the binding. Scripts write straight into its pixels. Does nothing when the image is
    /// null or the name cannot be bound. Not to be called while a run is on in another thread.
    virtual void addImageVariable(const QString& name, CxImageData* image) = 0;
};

#define CxScriptLangInterface_iid "com.kovra.CxScriptLangInterface"
Q_DECLARE_INTERFACE(CxScriptLangInterface, CxScriptLangInterface_iid)
