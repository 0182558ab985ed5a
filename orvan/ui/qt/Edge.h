// paintEdge: an edge that can be seen around a box or a button.
//
// The Fusion style draws edges that are hardly seen, above all on dark windows. Thread: the user-interface thread.
#pragma once

class QWidget;

namespace orvan::qt {

/// Paints over the edge that the Fusion style has painted, in a colour with enough contrast. To be called at the end of
/// a paint event. Does nothing for a widget that is disabled or has the focus, whose edge means something, nor where
/// another style or a style sheet paints.
void paintEdge(QWidget& widget);

} // namespace orvan::qt
