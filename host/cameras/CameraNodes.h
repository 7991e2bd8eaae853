// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// The GenICam nodes of one camera: found by name, read, written, and asked for their limits.
#pragma once

#include "cameras/NodeResult.h"

#include <CxCameraParam.h>

#include <QtCore/QStringList>

#include <arv.h>

#include <vector>

namespace vistrel {

class ArvFailure;
class CameraConnection;

/// A feature, and the name of the category in which the camera lists it.
struct CategorisedNode {
    ArvGcFeatureNode* node;
    QString category;
};

/// Nothing is remembered: values and limits are read from the camera every time, because one may
/// move with another. Once the connection broke nothing is sent any more. GUI thread.
class CameraNodes {
public:
    /// @param device, connection  outlive this object.
    CameraNodes(ArvDevice* device, CameraConnection& connection);

    /// The node of that name, which belongs to the device; null when it has none.
    ArvGcNode* find(const QString& name) const;
    /// Whether the camera has this feature at all; its state may still forbid to use it.
    bool isImplemented(ArvGcNode* node) const;
    /// Whether the camera takes a new value for it now.
    bool isWritable(ArvGcNode* node) const;
    /// Whether it could be written but for the state that the camera is in, mostly streaming.
    bool isLocked(ArvGcNode* node) const;

    /// Whether values of it can be read at all, as its description says.
    static bool isReadable(ArvGcNode* node);
    /// `value` is left alone on failure.
    NodeResult read(ArvGcNode* node, NodeValue& value) const;
    /// How a value of a node is read, by the node's kind; null when it has no values.
    using Reader = NodeValue (*)(ArvGcNode* node, GError** error);
    static Reader readerOf(ArvGcNode* node);
    /// The same for a node that is known to be readable, by its reader, in four fifths of the time.
    NodeResult readKnown(ArvGcNode* node, Reader reader, NodeValue& value) const;
    /// Writes a node, or executes it when it is a command and the value 1 or true. A number goes to
    /// every kind of number; a text to texts, to enumerations as an entry's name, and to numbers
    /// when it reads as one. A value that is not allowed is refused with the limits, steps or
    /// entries that are.
    NodeResult write(ArvGcNode* node, const NodeValue& value) const;
    NodeLimits limits(ArvGcNode* node) const;
    /// The entries that an enumeration takes now, the features in a category; none for others.
    QStringList entries(ArvGcNode* node) const;
    static QString nameOf(ArvGcFeatureNode* node);
    /// "integer", "float", "boolean", "enumeration", "string", "command", "category", or empty.
    static QString typeName(ArvGcNode* node);
    /// Of a number, as the camera names it; empty when it does not.
    static QString unit(ArvGcNode* node);
    /// The camera's own word for a level of experience.
    static ArvGcVisibility cameraVisibility(CxCameraParam::ExVisibility visibility);
    /// The features that the camera shows to users of that experience, in its order.
    std::vector<CategorisedNode> features(ArvGcVisibility visibility) const;

    /// The features of which the camera has one for each entry of this one; none when this is no
    /// selector.
    static std::vector<ArvGcFeatureNode*> selectedBy(ArvGcNode* node);

    /// What to say of an error; an answer that is missing breaks the connection.
    NodeResult resultOf(const ArvFailure& failure) const;
    bool connected() const;
    static NodeResult disconnected();
    /// What to say of a value that reads neither as on nor as off.
    static NodeResult noSwitch();

private:
    NodeResult usable(ArvGcNode* node) const;
    NodeResult readUsable(ArvGcNode* node, Reader reader, NodeValue& value) const;
    NodeResult writeInteger(ArvGcInteger* node, const NodeValue& value) const;
    NodeResult writeFloat(ArvGcFloat* node, const NodeValue& value) const;
    NodeResult writeBoolean(ArvGcBoolean* node, const NodeValue& value) const;
    NodeResult writeEnumeration(ArvGcEnumeration* node, const NodeValue& value) const;
    NodeResult writeText(ArvGcString* node, const NodeValue& value) const;
    NodeResult execute(ArvGcCommand* node) const;
    NodeResult writeAny(ArvGcNode* node, const NodeValue& value) const;

    ArvDevice* m_device;
    CameraConnection& m_connection;
};

} // namespace vistrel
