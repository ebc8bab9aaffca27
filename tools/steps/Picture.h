#pragma once

#include <QImage>

/// How many colours an image holds, told apart by their upper six bits.
int countColours(const QImage &image);
