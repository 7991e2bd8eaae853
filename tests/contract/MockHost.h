// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// A host of mocks under the real plugin: each interface of the host that the plugin calls.
#pragma once

#include <CxCameraManager.h>
#include <CxCameraParameters.h>
#include <CxChain.h>
#include <CxChainManager.h>
#include <CxChainable.h>
#include <CxImageData.h>
#include <CxImageFormatManager.h>
#include <CxMdiView.h>
#include <CxRTTI.h>
#include <IxAppDelegate.h>
#include <IxScriptEnvironment.h>

#include <gmock/gmock.h>

#include <QtXml/QDomElement>

class MockEnvironment : public IxScriptEnvironment {
public:
    MOCK_METHOD(QList<SxApiParamDef>&, apiParamDefs, (), (override));
    MOCK_METHOD(QList<SxApiParamEnumVal>&, apiParamEnumVals, (), (override));
    MOCK_METHOD(bool, isApiParamName, (const QString&), (override));
    MOCK_METHOD(QString, workingDirectory, (), (override));
    MOCK_METHOD(QString, resolvePath, (const QString&), (override));
    MOCK_METHOD(bool, isGuiThread, (), (override));
    MOCK_METHOD(void, addMenuItem, (QMenu*, const QString&, const QString&, const QString&),
                (override));
    MOCK_METHOD(bool, waitForNextFrame, (CxMdiView*, double), (override));
    MOCK_METHOD(void, wait, (double), (override));
    MOCK_METHOD(const char*, functionHelp, (const char*, const char*), (override));
    MOCK_METHOD(const char*, methodHelp, (const char*, const char*), (override));
};

class MockDelegate : public IxAppDelegate {
public:
    MOCK_METHOD(QWidget*, mainWindow, (), (override));
    MOCK_METHOD(QMenu*, menu, (int), (override));
    MOCK_METHOD(void, showNotification, (const QString&), (override));
    MOCK_METHOD(int, activeViewId, (), (override));
    MOCK_METHOD(void, activateView, (int), (override));
    MOCK_METHOD(void, tileViews, (), (override));
    MOCK_METHOD(void, setFullScreen, (bool), (override));
    MOCK_METHOD(CxMdiView*, view, (int), (override));
    MOCK_METHOD(bool, duplicateView, (int), (override));
    MOCK_METHOD(bool, openFile, (const QString&, bool), (override));
    MOCK_METHOD(bool, newViewWithImage, (CxImageData*, const QString&), (override));
    MOCK_METHOD(void, setViewImage, (int, CxImageData*), (override));
    MOCK_METHOD(CxImageData*, viewImage, (int), (override));
    MOCK_METHOD(void, playSound, (const QString&), (override));
    MOCK_METHOD(bool, setCameraAcquisition, (bool, void*), (override));
    MOCK_METHOD(void, restartCameraWithDefaults, (void*), (override));
    MOCK_METHOD(SxPicBuf*, captureImageDialog,
                (QWidget*, void*, const QString&, const QString&, bool, int*, int), (override));
};

class MockMdiView : public CxMdiView {
public:
    MOCK_METHOD(bool, startRecording, (QString), (override));
    MOCK_METHOD(void, stopRecording, (), (override));
    MOCK_METHOD(bool, isRecording, (), (const, override));
    MOCK_METHOD(quint64, frameCount, (), (const, override));
    MOCK_METHOD(CxChainable*, chainEnd, (), (override));
    MOCK_METHOD(void, requestClose, (), (override));
};

class MockCameraParameters : public CxCameraParameters {
public:
    MOCK_METHOD(const SxCameraInfo&, cameraInfo, (), (const, override));
    MOCK_METHOD(CxCameraParam*, findParam, (const QString&, bool), (override));
    MOCK_METHOD(bool, getParamDirect, (const QString&, CxValue&, int*), (override));
    MOCK_METHOD(bool, setParamDirect,
                (const QString&, const CxValue&, int*, ExCommitRefreshGuiMode), (override));
    MOCK_METHOD(QRect, currentROIRectParams, (), (override));
    MOCK_METHOD(void, setROIRectParams, (int, int, int, int, bool), (override));
    MOCK_METHOD(bool, saveParamValuesToFile, (const QString&, CxCameraParam::ExVisibility),
                (override));
    MOCK_METHOD(bool, loadParamValuesFromFile,
                (const QString&, CxCameraParam::ExVisibility, QList<QString>*, bool), (override));
    MOCK_METHOD(void, notifyShadingChanged, (), (override));
};

class MockCameraManager : public CxCameraManager {
public:
    MOCK_METHOD(QList<void*>, openedCameras, (), (override));
    MOCK_METHOD(unsigned, openedCameraCount, (), (override));
    MOCK_METHOD(CxCameraParameters*, cameraParameters, (void*), (override));
};

class MockLoader : public IxImageLoader {
public:
    ~MockLoader() override { destroyed(); }
    MOCK_METHOD(bool, load, (), (override));
    MOCK_METHOD(QObject*, loadedObject, (), (override));
    MOCK_METHOD(void, destroyed, ());
};

class MockSaver : public IxImageSaver {
public:
    ~MockSaver() override { destroyed(); }
    MOCK_METHOD(bool, save, (CxImageData*, int), (override));
    MOCK_METHOD(void, destroyed, ());
};

class MockFormatManager : public CxImageFormatManager {
public:
    MOCK_METHOD(IxImageLoader*, loaderForFile, (const QString&), (override));
    MOCK_METHOD(IxImageSaver*, saverForFile, (const QString&), (override));
};

class MockChain : public CxChain {
public:
    MOCK_METHOD(bool, stopped, (), (const, override));
    MOCK_METHOD(void, stop, (), (override));
    MOCK_METHOD(void, start, (), (override));
};

class MockElement : public QObject, public CxChainable {
public:
    ~MockElement() override { destroyed(); }
    MOCK_METHOD(CxChain*, chain, (), (override));
    MOCK_METHOD(void, configure, (const QDomElement&), (override));
    MOCK_METHOD(void, setEnabled, (bool), (override));
    MOCK_METHOD(void, destroyed, ());
};

class MockChainManager : public CxChainManager {
public:
    MOCK_METHOD(void, insertBefore, (CxChain*, CxChainable*, CxChainable*), (override));
};

class MockClassRegistry : public CxRTTI {
public:
    MOCK_METHOD(QList<QString>, classesForInterface, (const QString&, bool), (override));
    MOCK_METHOD(QString, customName, (const QString&), (override));
    MOCK_METHOD(QObject*, createInstance, (const QString&), (override));
};
