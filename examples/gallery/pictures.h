// gallery/pictures.h: one function a picture.
#pragma once

#include "examples/gallery/sheet.h"

// axis_places.cpp
void drawFourYAxes(Sheet& sheet);
void drawTopAndBottomXAxes(Sheet& sheet);
void drawVerticalChart(Sheet& sheet);
void drawFlips(Sheet& sheet);

// date_axes.cpp
void drawDateSpans(Sheet& sheet);

// logarithmic_axes.cpp
void drawLogarithmicBases(Sheet& sheet);
void drawNegativeLogarithmicRange(Sheet& sheet);

// own_shapes.cpp
void drawOwnShapes(Sheet& sheet);

// line_styles.cpp
void drawLineStyles(Sheet& sheet);

// category_axes.cpp
void drawNumericCategories(Sheet& sheet);
void drawDateCategories(Sheet& sheet);
