// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// The base of tests of what a script does with a camera: one is open in the host.
#pragma once

#include "PluginTest.h"

QT_BEGIN_NAMESPACE
inline void PrintTo(const QRect& rect, std::ostream* stream)
{
    *stream << rect.x() << ", " << rect.y() << ", " << rect.width() << " x " << rect.height();
}
QT_END_NAMESPACE

inline void PrintTo(const CxValue& value, std::ostream* stream)
{
    *stream << "type " << value.type() << ": " << value.toString().toStdString();
}

class MockCameraParam : public CxCameraParam {
public:
    MOCK_METHOD(CxValue, paramValue, (), (override));
    MOCK_METHOD(CxValue, minimum, (), (override));
    MOCK_METHOD(CxValue, maximum, (), (override));
    MOCK_METHOD(CxValue, increment, (), (override));
    MOCK_METHOD(bool, isUnsupported, (), (const, override));
};

MATCHER_P(IsInt, number, "") { return arg.type() == CxValue::Int && arg.toInt() == number; }
MATCHER_P(IsFloat, number, "") { return arg.type() == CxValue::Float && arg.toFloat() == number; }
MATCHER_P(ReadsAs, text, "") { return arg.toString() == QLatin1String(text); }
MATCHER_P(IsBool, truth, "") { return arg.type() == CxValue::Bool && arg.toBool() == truth; }
MATCHER_P(IsText, text, "") { return arg.type() == CxValue::String && arg.toString() == text; }

/// The camera is CAM-A1 with the serial number 12345678. It lists no parameters until listParam(),
/// and the environment knows the names that are listed.
class CameraTest : public PluginTest {
protected:
    static constexpr char unsupportedType[] = "Exception: Unsupported camera parameter value type.";
    static constexpr char notSupported[] = "Exception: Parameter not supported by the camera.";

    CameraTest()
    {
        ON_CALL(environment, isApiParamName).WillByDefault([this](const QString& name) {
            return listed.contains(name);
        });
        ON_CALL(camera.parameters, findParam(testing::_, false))
            .WillByDefault([this](const QString& name, bool) -> CxCameraParam* {
                const auto found = listed.find(name);
                return found != listed.end() ? found->get() : nullptr;
            });
    }

    using Param = testing::NiceMock<MockCameraParam>;

    /// Makes the host list a parameter with a current value.
    Param& listParam(const QString& name, const CxValue& value)
    {
        const auto param = std::make_shared<Param>();
        ON_CALL(*param, paramValue()).WillByDefault(testing::Return(value));
        listed[name] = param;
        return *param;
    }

    /// Runs a script in which `cam` is bound to the camera.
    QString runBound(const std::string& script)
    {
        return run(("cam = vistrel.Camera()\ncam.open_device()\n" + script).c_str());
    }

    /// What print(expression) writes there.
    QString boundValue(const std::string& expression)
    {
        EXPECT_EQ(runBound("print(" + expression + ", end='')"), QString()) << expression;
        return output;
    }

    /// The last line of the error in which a script ends there.
    QString boundError(const std::string& script)
    {
        return runBound(script).trimmed().section(QLatin1Char('\n'), -1);
    }

    FakeCamera& camera = addCamera(QStringLiteral("CAM-A1"), QStringLiteral("12345678"));
    QMap<QString, std::shared_ptr<Param>> listed;
};
