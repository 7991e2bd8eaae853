// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Drawing a chart into a picture.
#pragma once

struct CxGraphData;
class CxImageData;

/// Draws the chart over the whole picture, whose format picture_canvas::formatError has accepted.
/// Nothing is drawn into a picture without pixels. Beyond 8388607 pixels to the right and down Qt
/// paints nothing: the picture stays as it is there, and a line in the log says so.
/// Call it on the GUI thread.
/// Returns null, or the error when no widget can be made here: the picture is unchanged then.
const char* fx_script_DrawIntoImage(const CxGraphData* graph, CxImageData* image);
