// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// The plugin object: metadata, interface casts, its one instance, start and end of the interpreter.
#include "PluginTest.h"

#include <QtCore/QFile>
#include <QtCore/QJsonObject>
#include <QtCore/QTemporaryDir>

#include <dlfcn.h>

namespace {

/// A function of the Python library that the plugin brought into the process.
template<class Function>
Function* pythonFunction(const char* name)
{
    return reinterpret_cast<Function*>(dlsym(RTLD_DEFAULT, name));
}

class PluginObject : public PluginTest {
protected:
    /// Py_IsInitialized of the library that the plugin has loaded, global or not.
    static int isInitialized()
    {
        void* const library = dlopen(VISTREL_PYTHON_LIBRARY, RTLD_LAZY | RTLD_NOLOAD);
        EXPECT_NE(library, nullptr) << dlerror();
        return reinterpret_cast<int (*)()>(dlsym(library, "Py_IsInitialized"))();
    }
};

TEST_F(PluginObject, MetadataHoldsInterfaceIdAndClassNameAlone)
{
    const QJsonObject metadata = loader.metaData();
    EXPECT_EQ(metadata.value(QLatin1String("IID")).toString(),
              QStringLiteral("com.kovra.Vistrel.CxPythonScriptPlugin"));
    EXPECT_EQ(metadata.value(QLatin1String("className")).toString(),
              QStringLiteral("CxPythonScriptPlugin"));
    EXPECT_TRUE(metadata.value(QLatin1String("MetaData")).toObject().isEmpty());
}

TEST_F(PluginObject, MetadataNamesQt64)
{
    constexpr int qt64 = 0x060400;
    const int version = loader.metaData().value(QLatin1String("version")).toInt();
    EXPECT_EQ(version & 0xffff00, qt64);
}

TEST_F(PluginObject, BothInterfaceNamesCastToTheSameSubObject)
{
    QObject* object = loader.instance();
    void* const byClass = object->qt_metacast("CxScriptLangInterface");
    void* const byId = object->qt_metacast("com.kovra.CxScriptLangInterface");
    EXPECT_EQ(byClass, byId);
    EXPECT_EQ(byClass, static_cast<void*>(plugin));
}

TEST_F(PluginObject, CastsByItsOwnNameAndToQObjectOnly)
{
    QObject* object = loader.instance();
    EXPECT_EQ(object->qt_metacast("CxPythonScriptPlugin"), static_cast<void*>(object));
    EXPECT_EQ(object->qt_metacast("QObject"), static_cast<void*>(object));
    EXPECT_EQ(object->qt_metacast("CxSomethingElse"), nullptr);
    EXPECT_EQ(object->qt_metacast(nullptr), nullptr);
}

TEST_F(PluginObject, TheQObjectComesFirstAndTheInterfaceBehindIt)
{
    QObject* object = loader.instance();
    EXPECT_EQ(reinterpret_cast<char*>(plugin) - reinterpret_cast<char*>(object),
              static_cast<std::ptrdiff_t>(sizeof(QObject)));
}

TEST_F(PluginObject, HasNoSignalsSlotsAndPropertiesOfItsOwn)
{
    const QMetaObject* meta = loader.instance()->metaObject();
    EXPECT_EQ(meta->methodCount(), meta->methodOffset());
    EXPECT_EQ(meta->propertyCount(), meta->propertyOffset());
    EXPECT_EQ(meta->superClass(), &QObject::staticMetaObject);
}

TEST_F(PluginObject, EntryGivesTheSameObjectTwice)
{
    QObject* first = loader.instance();
    QPluginLoader second(QStringLiteral(VISTREL_PLUGIN_FILE));
    EXPECT_EQ(second.instance(), first);
    using Entry = QObject*();
    void* const library = dlopen(VISTREL_PLUGIN_FILE, RTLD_NOW | RTLD_NOLOAD);
    auto* const entry = reinterpret_cast<Entry*>(dlsym(library, "qt_plugin_instance"));
    EXPECT_EQ(entry(), first);
    EXPECT_EQ(entry(), first);
}

TEST_F(PluginObject, EntryMakesANewObjectAfterTheFirstIsGone)
{
    destroyPlugin();
    plugin = qobject_cast<CxScriptLangInterface*>(loader.instance());
    ASSERT_NE(plugin, nullptr);
    EXPECT_TRUE(plugin->init());
    EXPECT_EQ(value("1 + 1"), QStringLiteral("2"));
}

TEST_F(PluginObject, LanguageVersionStartsNoInterpreter)
{
    const QString version = plugin->languageVersion();
    EXPECT_TRUE(version.startsWith(QLatin1String("Python 3."))) << qPrintable(version);
    EXPECT_FALSE(version.mid(7).contains(QLatin1Char(' ')));
    EXPECT_EQ(isInitialized(), 0);
    EXPECT_EQ(value("__import__('platform').python_version()"), version.mid(7));
}

TEST_F(PluginObject, InitStartsNoInterpreterAndSucceeds)
{
    EXPECT_CALL(environment, apiParamDefs()).Times(0);
    EXPECT_TRUE(plugin->init());
    EXPECT_TRUE(plugin->init());
    EXPECT_EQ(isInitialized(), 0);
}

TEST_F(PluginObject, DestructionAfterARunFinalisesTheInterpreter)
{
    run("pass");
    auto* const isInitialized = pythonFunction<int()>("Py_IsInitialized");
    ASSERT_NE(isInitialized, nullptr);
    EXPECT_EQ(isInitialized(), 1);
    destroyPlugin();
    EXPECT_EQ(isInitialized(), 0);
}

TEST_F(PluginObject, DestructionWithoutARunFinalisesNothing)
{
    // An interpreter that somebody else started must live on.
    void* const library = dlopen(VISTREL_PYTHON_LIBRARY, RTLD_NOW | RTLD_GLOBAL);
    ASSERT_NE(library, nullptr) << dlerror();
    pythonFunction<void()>("Py_Initialize")();
    destroyPlugin();
    EXPECT_EQ(pythonFunction<int()>("Py_IsInitialized")(), 1);
}

TEST_F(PluginObject, ARunInAnInterpreterThatIsAlreadyThereDoesNotEndTheProcess)
{
    void* const library = dlopen(VISTREL_PYTHON_LIBRARY, RTLD_NOW | RTLD_GLOBAL);
    ASSERT_NE(library, nullptr) << dlerror();
    pythonFunction<void()>("Py_Initialize")();
    EXPECT_EQ(run("import sys\nsys.kept = 5"), QString());
    EXPECT_EQ(pythonFunction<int()>("Py_IsInitialized")(), 1);
}

TEST_F(PluginObject, ASecondPluginInOneProcessEndsNeitherItNorTheFirst)
{
    const QTemporaryDir folder;
    const QString copy = folder.filePath(QStringLiteral("libsecond.so"));
    ASSERT_TRUE(QFile::copy(QStringLiteral(VISTREL_PLUGIN_FILE), copy));
    EXPECT_EQ(value("1"), QStringLiteral("1"));
    QPluginLoader secondLoader(copy);
    auto* second = qobject_cast<CxScriptLangInterface*>(secondLoader.instance());
    ASSERT_NE(second, nullptr) << qPrintable(secondLoader.errorString());
    EXPECT_NE(second, plugin);
    EXPECT_TRUE(second->init());
    EXPECT_EQ(second->languageVersion(), plugin->languageVersion());
    second->runScript(QStringLiteral("import sys\nsys.by_second = 2"), &environment, QString(),
                      nullptr, nullptr, nullptr);
    EXPECT_EQ(value("__import__('sys').by_second"), QStringLiteral("2"))
        << "both use the one interpreter";
    delete second;
    EXPECT_EQ(value("3"), QStringLiteral("3")) << "only who started it stops it";
    second = qobject_cast<CxScriptLangInterface*>(secondLoader.instance());
    second->init();
    second->runScript(QStringLiteral("pass"), &environment, QString(), nullptr, nullptr, nullptr);
    destroyPlugin();
    EXPECT_EQ(second->runScript(QStringLiteral("pass"), &environment, QString(), nullptr, nullptr,
                                nullptr),
              QString());
}

TEST_F(PluginObject, ASecondInitAfterARunDoesNotEndTheProcess)
{
    run("x = 1");
    EXPECT_TRUE(plugin->init());
    EXPECT_EQ(value("2"), QStringLiteral("2"));
}

} // namespace
