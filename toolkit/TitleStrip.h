#pragma once

#include <QWidget>

class ElidedLabel;
class QHBoxLayout;

/// The 28-pixel strip at the head of a window: title at the left, buttons at the right.
class TitleStrip : public QWidget {
    Q_OBJECT

public:
    static constexpr int Height = 28;

    explicit TitleStrip(QWidget* parent = nullptr);

    /// The text at the left.
    QString Title() const;
    void SetTitle(const QString& title);
    /// The label of the title; its object name is "LblTitle".
    ElidedLabel* Label() const { return label_; }
    /// Adds before the title, from left to right.
    void AddLeading(QWidget* widget);
    /// Adds after the title, from left to right; the last stands at the right edge.
    void AddButton(QWidget* button);
    /// A compact strip shows the title and the last three buttons only.
    void SetCompact(bool compact);
    bool IsActive() const { return active_; }
    /// An active strip has the brighter title.
    void SetActive(bool active);

Q_SIGNALS:
    /// The left button went down on the strip, at a place on the screen.
    void MoveRequested(QPoint screenPlace);
    /// The strip was double-clicked.
    void MaximizeToggled();

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    QHBoxLayout* row_ = nullptr;
    ElidedLabel* label_ = nullptr;
    int leading_ = 0;
    bool active_ = false;
};
