#pragma once

#include "toolkit/CLBHScroll.h"

#include <QWidget>

class QListWidget;
struct TextSettings;

/// Three lists side by side that choose a font: its name, its style and its size in points.
class FontLists : public QWidget {
    Q_OBJECT

public:
    explicit FontLists(QWidget* parent);

    /// Selects the font of the settings; a name or size that is in no list gets a row of its own.
    void Show(const TextSettings& text);
    /// Puts the font selected into the settings.
    void Take(TextSettings& text) const;

Q_SIGNALS:
    /// The user has chosen another font.
    void Changed();

protected:
    void showEvent(QShowEvent* event) override;

private:
    void Build();
    void FillNames(const QString& wanted);
    void FillSizes(float wanted);

    QListWidget* List1; ///< names
    QListWidget* List2; ///< styles
    QListWidget* List3; ///< sizes
    CLBHScroll names_;
};
