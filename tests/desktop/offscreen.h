#pragma once

#include <QApplication>
#include <QImage>

namespace feltmaster {

// The one application of the tests, on a platform without a display.
void StartOffscreen();

// How much two pictures of one size differ: the mean of the differences of all channels, 0 to 255.
double Difference(const QImage& a, const QImage& b);

}  // namespace feltmaster
