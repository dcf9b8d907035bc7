#pragma once

#include "app/TextSettings.h"

#include <QImage>
#include <QString>

#include <vector>

/// Light, dark and middling ground for a text.
QImage TextGround(QSize size);

/// A picture with the user's text, drawn as every setting but one has it in all of them.
struct TextSample {
    QString name; ///< of the style, or of the setting that differs
    TextSettings text;
    QImage picture;
};

/// One of each style, and one of each setting that changes what is drawn.
std::vector<TextSample> TextSamples();

/// The samples on one sheet with their names, for the eye.
QImage TextSampleSheet();
