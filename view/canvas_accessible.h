// What assistive programs are told of the canvas: its report as text, the rows of a pass table, a map as a sentence.
#pragma once

/// From now on each canvas that is asked for its interface has one of this kind.
void makeCanvasAccessible();
