#pragma once

#include <string_view>

class QLabel;

/// A word that tells how a font looks, and the type in which it stands.
struct FontWord {
    const char* text;
    bool isBold = false;
    bool isItalic = false;
    bool operator==(const FontWord& other) const
    {
        return std::string_view(text) == other.text && isBold == other.isBold && isItalic == other.isItalic;
    }
};

namespace FontWords {

/// Label14.
FontWord Weight(bool isBold);
/// Label15 when the options open. The word for an upright font is no slip: readers of the dialog know it so.
FontWord SlantAtOpening(bool isItalic);
/// Label15 once a font was chosen.
FontWord SlantOfChosen(bool isItalic, bool isBold);

/// Puts a word on a label in its type.
void Show(QLabel& label, const FontWord& word);

} // namespace FontWords
