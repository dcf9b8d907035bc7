#include "settingsui/FontWords.h"

#include <QLabel>

namespace FontWords {

FontWord Weight(bool isBold)
{
    return isBold ? FontWord { "Bold", true } : FontWord { "Regular" };
}

FontWord SlantAtOpening(bool isItalic)
{
    return isItalic ? FontWord { "Italic", true } : FontWord { "Italic Bold" };
}

FontWord SlantOfChosen(bool isItalic, bool isBold)
{
    if (!isItalic)
        return { "Regular" };
    return isBold ? FontWord { "Italic Bold", true, true } : FontWord { "Italic", false, true };
}

void Show(QLabel& label, const FontWord& word)
{
    QFont type = label.font();
    type.setBold(word.isBold);
    type.setItalic(word.isItalic);
    label.setFont(type);
    label.setText(QLatin1String(word.text));
}

} // namespace FontWords
