// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Error texts of the graph object.
#pragma once

namespace graph_messages {

inline constexpr char emptyObject[] = "Graph object is empty";
inline constexpr char wrongFormat[] = "Image must have RGB or RGBA format";
inline constexpr char wrongThread[] = "a graph is drawn and copied on the GUI thread only";
inline constexpr char noUserInterface[] = "a graph cannot be drawn: the host has no user interface";

} // namespace graph_messages
