// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// A camera's settings as a file: JSON, for people to read too.
#include "cameras/SettingsFile.h"

#include "core/FileReplacement.h"

#include <QtCore/QFile>
#include <QtCore/QJsonArray>
#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>

namespace vistrel {

namespace {

constexpr char formatName[] = "vistrel camera settings";
/// Version 1 knew no selectors.
constexpr int oldestVersion = 1;
constexpr int formatVersion = 2;
/// Far more than a camera's settings take.
constexpr qint64 largestFile = 4 << 20;

const QString formatKey = QStringLiteral("format");
const QString versionKey = QStringLiteral("version");
const QString modelKey = QStringLiteral("model");
const QString serialNumberKey = QStringLiteral("serial_number");
const QString parametersKey = QStringLiteral("parameters");
const QString selectedKey = QStringLiteral("selected");
const QString positionKey = QStringLiteral("at");

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

QJsonObject toJson(const NodeValues& values)
{
    QJsonObject object;
    for (const auto& [name, value] : values)
        object.insert(name, toJson(value));
    return object;
}

QJsonArray toJson(const std::vector<SelectedValues>& selected)
{
    QJsonArray list;
    for (const SelectedValues& each : selected)
        list.append(QJsonObject{{positionKey, toJson(each.position)},
                                {parametersKey, toJson(each.values)}});
    return list;
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

bool readValues(const QJsonValue& source, NodeValues& values, QString& error)
{
    if (!source.isObject()) {
        error = QStringLiteral("it has no parameters");
        return false;
    }
    const QJsonObject object = source.toObject();
    for (auto entry = object.begin(); entry != object.end(); ++entry) {
        const NodeValue value = fromJson(entry.value());
        if (std::holds_alternative<std::monostate>(value)) {
            error = QStringLiteral("the value of %1 is neither number, text nor truth value")
                        .arg(entry.key());
            return false;
        }
        values.emplace(entry.key(), value);
    }
    return true;
}

bool readSelected(const QJsonValue& source, std::vector<SelectedValues>& selected, QString& error)
{
    if (!source.isUndefined() && !source.isArray()) {
        error = QStringLiteral("what is selected is no list");
        return false;
    }
    const QJsonArray list = source.toArray();
    for (const QJsonValue each : list) {
        SelectedValues& values = selected.emplace_back();
        if (!readValues(each[positionKey], values.position, error)
            || !readValues(each[parametersKey], values.values, error))
            return false;
    }
    return true;
}

std::optional<CameraSettings> settingsOf(const QJsonObject& object, QString& error)
{
    if (object.value(formatKey).toString() != QLatin1String(formatName)) {
        error = QStringLiteral("it holds no camera settings");
        return std::nullopt;
    }
    const qint64 version = object.value(versionKey).toInteger();
    if (version < oldestVersion || version > formatVersion) {
        error = QStringLiteral("its version is not %1 to %2").arg(oldestVersion).arg(formatVersion);
        return std::nullopt;
    }
    CameraSettings settings;
    settings.model = object.value(modelKey).toString();
    settings.serialNumber = object.value(serialNumberKey).toString();
    if (!readValues(object.value(parametersKey), settings.values.values, error)
        || !readSelected(object.value(selectedKey), settings.values.selected, error))
        return std::nullopt;
    return settings;
}

} // namespace

bool writeSettingsFile(const QString& path, const CameraSettings& settings, QString& error)
{
    const QJsonObject object{{formatKey, QLatin1String(formatName)},
                             {versionKey, formatVersion},
                             {modelKey, settings.model},
                             {serialNumberKey, settings.serialNumber},
                             {parametersKey, toJson(settings.values.values)},
                             {selectedKey, toJson(settings.values.selected)}};
    return replaceFile(path, QJsonDocument(object).toJson(), error);
}

std::optional<CameraSettings> readSettingsFile(const QString& path, QString& error)
{
    if (isNoFile(path, error))
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
