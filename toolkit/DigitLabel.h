#pragma once

#include <QLabel>

/// A one-line label for times and numbers: every digit takes the width of the widest, so that a running text
/// does not jump.
class DigitLabel : public QLabel {
    Q_OBJECT

public:
    explicit DigitLabel(QWidget* parent = nullptr);

    /// Keeps at least the room of this text, such as "00:00:00  -  00:00:00".
    void SetSample(const QString& text);
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    int CharacterWidth(QChar character) const;
    int TextWidth(const QString& text) const;

    QString sample_;
};
