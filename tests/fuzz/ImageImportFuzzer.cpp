// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Fills an image from arguments that are made of bytes, and uses what has become of it. Under the
// sanitizers nothing may be read or written outside, and a refusal must leave the picture as it
// was.
#include "CxPythonScriptPlugin.h"
#include "FuncImage/ImageType.h"
#include "ImportArguments.h"
#include "PlainEnvironment.h"

#include "core/PicBufHeap.h"

#include <SxPicBuf.h>

#include <QtCore/QCoreApplication>
#include <QtCore/QDebug>

#include <cstdlib>

using python::PyRef;

namespace {

/// Refuses large pictures: they take long and show nothing that small ones do not.
void* allocateSmall(std::size_t bytes, std::size_t, bool)
{
    return bytes <= (std::size_t{1} << 20) ? std::calloc(1, bytes) : nullptr;
}

/// Starts the interpreter with the plugin's module; lives as long as the process.
class Host {
public:
    Host()
        : m_application(m_argumentCount, m_arguments)
    {
        qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});
        m_plugin.init();
        m_plugin.runScript(QStringLiteral("pass"), &m_environment, QString(), nullptr, nullptr,
                           nullptr);
        vistrel::setPicBufAllocator(allocateSmall);
    }

private:
    int m_argumentCount = 1;
    char m_name[7] = "fuzzer";
    char* m_arguments[2] = {m_name, nullptr};
    QCoreApplication m_application;
    PlainEnvironment m_environment;
    CxPythonScriptPlugin m_plugin;
};

bool succeeds(const PyRef& result)
{
    PyErr_Clear();
    return static_cast<bool>(result);
}

/// Calls what works on a picture of any kind.
void use(PyObject* image)
{
    for (const char* method : {"__str__", "tobytes", "to_rgb", "measure_rect",
                               "measure_row_profiles_in_rect", "new_copy", "get_image_data_numpy"})
        succeeds(PyRef::take(PyObject_CallMethod(image, method, nullptr)));
    succeeds(PyRef::take(PyObject_CallMethod(image, "convert_bpc", "i", 10)));
    succeeds(PyRef::take(PyObject_CallMethod(image, "extract_channel", "i", 0)));
    succeeds(PyRef::take(PyObject_CallMethod(image, "add", "O", image)));
    succeeds(PyRef::take(PyObject_CallMethod(image, "set_pixel_value", "Lii", 300LL, 0, 0)));
}

/// An image that holds a picture, filled from an argument.
void import(PyObject* argument)
{
    const PyRef image = PyRef::take(PyObject_CallObject(TxPyImageType, nullptr));
    if (!succeeds(PyRef::take(PyObject_CallMethod(image.get(), "alloc", "iiii", 3, 2, 1, 8))))
        std::abort();
    const auto address = [&image] { return fx_pyimg_buffer(image.get())->data; };
    const void* const before = address();
    const PyRef result = PyRef::take(PyObject_CallMethod(image.get(), "from_array", "O", argument));
    // A list fills the image and ends in the interpreter's own error.
    const bool isRefusal = !result && PyErr_ExceptionMatches(PyExc_SystemError) == 0;
    PyErr_Clear();
    if (isRefusal && address() != before)
        std::abort();
    use(image.get());
    fx_pyimg_Free(image.get());
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static const Host host;
    static const ForeignMemory memory;
    FuzzedDataProvider bytes(data, size);
    const PyRef argument = ImportArguments(bytes, memory).argument();
    if (argument)
        import(argument.get());
    PyErr_Clear();
    return 0;
}
