#pragma once

#include "viewers/ThumbLayout.h"

#include <QCache>
#include <QImage>
#include <QPixmap>
#include <QTimer>
#include <QWidget>

#include <vector>

/// The cells of the thumbnail strip. All are painted in this one widget: adding one costs the same for the
/// first and for the ten-thousandth, and only those in sight are kept scaled down. The keys move from cell to
/// cell; assistive technology sees a list.
class ThumbPanel : public QWidget {
    Q_OBJECT

public:
    static constexpr QSize CellSize { 160, 120 };

    explicit ThumbPanel(QWidget* parent = nullptr);

    void Add(const QImage& picture);
    int Count() const { return int(cells_.size()); }
    /// The picture of a cell at full size.
    const QImage& Bitmap(int index) const { return cells_.at(size_t(index)).picture; }
    void SetBitmap(int index, const QImage& picture);
    QRect CellRect(int index) const { return { cells_.at(size_t(index)).place, CellSize }; }
    /// The cell at a place, -1 where there is none.
    int IndexAt(QPoint place) const;

    /// The highlighted cell, -1 at first.
    int Selected() const { return selected_; }
    void Select(int index);
    /// A brief tint of the painted cell, to show that it was picked.
    void Flash(int index);

    /// Bytes of the pictures kept scaled down.
    qsizetype CachedBytes() const { return scaled_.totalCost(); }
    static constexpr qsizetype MaxCachedBytes = qsizetype(16) * 1024 * 1024;

Q_SIGNALS:
    void Clicked(int index); ///< by the mouse or the keys
    void DoubleClicked(int index); ///< or, when it is highlighted already, picked by Enter
    void CurrentMoved(const QRect& cell); ///< is to be in sight

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    struct Cell {
        QImage picture;
        QPoint place;
    };

    void PlaceAgain();
    int FirstBelow(int top) const;
    int CellsInRow() const;
    /// Where a key leads from the highlighted cell; -1 when it leads nowhere.
    int Neighbour(int key) const;
    void PaintCell(QPainter& painter, int index);
    QPixmap Scaled(int index);

    ThumbLayout layout_ { CellSize };
    std::vector<Cell> cells_; ///< from above to below
    QCache<int, QPixmap> scaled_ { MaxCachedBytes };
    QTimer flashTimer_;
    int selected_ = -1;
    int tinted_ = -1;
};
