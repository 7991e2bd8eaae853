// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// A camera's settings as a file: JSON, for people to read too.
#include "cameras/SettingsFile.h"

#include "core/FileReplacement.h"

#include <QtCore/QFile>
#include <QtCore/QFileInfo>
#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>

namespace vistrel {

namespace {

constexpr char formatName[] = "vistrel camera settings";
constexpr int formatVersion = 1;
/// Far more than a camera's settings take.
constexpr qint64 largestFile = 4 << 20;

const QString formatKey = QStringLiteral("format");
const QString versionKey = QStringLiteral("version");
const QString modelKey = QStringLiteral("model");
const QString serialNumberKey = QStringLiteral("serial_number");
const QString parametersKey = QStringLiteral("parameters");

QJsonValue toJson(const NodeValue& value)
{
    if (const bool* on = std::get_if<bool>(&value))
        return *on;
    if (const qint64* integer = std::get_if<qint64>(&value))
        return *integer;
    if (const double* number = std::get_if<double>(&value))
        return *number;
    return valueText(value);
}

/// No value for what is none in a settings file.
NodeValue fromJson(const QJsonValue& value)
{
    if (value.isBool())
        return value.toBool();
    if (value.isString())
        return value.toString();
    if (!value.isDouble())
        return {};
    const qint64 integer = value.toInteger(0);
    return integer == value.toInteger(1) ? NodeValue(integer) : NodeValue(value.toDouble());
}

bool readParameters(const QJsonObject& object, CameraSettings& settings, QString& error)
{
    for (auto entry = object.begin(); entry != object.end(); ++entry) {
        const NodeValue value = fromJson(entry.value());
        if (std::holds_alternative<std::monostate>(value)) {
            error = QStringLiteral("the value of %1 is neither number, text nor truth value")
                        .arg(entry.key());
            return false;
        }
        settings.values.emplace(entry.key(), value);
    }
    return true;
}

std::optional<CameraSettings> settingsOf(const QJsonObject& object, QString& error)
{
    if (object.value(formatKey).toString() != QLatin1String(formatName)) {
        error = QStringLiteral("it holds no camera settings");
        return std::nullopt;
    }
    if (object.value(versionKey).toInteger() != formatVersion) {
        error = QStringLiteral("its version is not %1").arg(formatVersion);
        return std::nullopt;
    }
    if (!object.value(parametersKey).isObject()) {
        error = QStringLiteral("it has no parameters");
        return std::nullopt;
    }
    CameraSettings settings;
    settings.model = object.value(modelKey).toString();
    settings.serialNumber = object.value(serialNumberKey).toString();
    if (!readParameters(object.value(parametersKey).toObject(), settings, error))
        return std::nullopt;
    return settings;
}

/// A folder, a device or a pipe: reading may wait for ever, and replacing would take it away.
bool isSomethingElse(const QString& path, QString& error)
{
    const QFileInfo info(path);
    const bool isElse = info.exists() && !info.isFile();
    if (isElse)
        error = QStringLiteral("it is no file");
    return isElse;
}

} // namespace

bool writeSettingsFile(const QString& path, const CameraSettings& settings, QString& error)
{
    if (isSomethingElse(path, error))
        return false;
    QJsonObject parameters;
    for (const auto& [name, value] : settings.values)
        parameters.insert(name, toJson(value));
    const QJsonObject object{{formatKey, QLatin1String(formatName)},
                             {versionKey, formatVersion},
                             {modelKey, settings.model},
                             {serialNumberKey, settings.serialNumber},
                             {parametersKey, parameters}};
    return replaceFile(path, QJsonDocument(object).toJson(), error);
}

std::optional<CameraSettings> readSettingsFile(const QString& path, QString& error)
{
    if (isSomethingElse(path, error))
        return std::nullopt;
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        error = file.errorString();
        return std::nullopt;
    }
    const QByteArray text = file.read(largestFile + 1);
    if (text.size() > largestFile) {
        error = QStringLiteral("it is too large for camera settings");
        return std::nullopt;
    }
    QJsonParseError parseError;
    const QJsonDocument document = QJsonDocument::fromJson(text, &parseError);
    if (!document.isObject()) {
        error = parseError.error == QJsonParseError::NoError
                    ? QStringLiteral("it holds no camera settings")
                    : QStringLiteral("it is broken at byte %1: %2")
                          .arg(parseError.offset)
                          .arg(parseError.errorString());
        return std::nullopt;
    }
    return settingsOf(document.object(), error);
}

} // namespace vistrel
