#pragma once

#include <QPoint>
#include <QSize>

/// Where the cells of the thumbnail strip stand: rows from left to right, a new row where the next cell does
/// not fit.
class ThumbLayout {
public:
    static constexpr int Left = 8;
    static constexpr int Top = 8;
    static constexpr int Gap = 10;
    static constexpr int RightMargin = 30;
    static constexpr int GrowthBelow = 60;

    /// Size of every cell, pixels.
    explicit ThumbLayout(QSize cell)
        : cell_(cell)
        , panelHeight_(cell.height() + 2 * Top)
    {
    }

    /// The place of the next cell in a panel of this inner width. A cell wider than the panel has a row of
    /// its own.
    QPoint Next(int panelWidth);
    int RowCount() const { return rowCount_; }
    /// Height of the panel that holds the cells placed so far; it grows in steps.
    int PanelHeight() const { return panelHeight_; }

private:
    QSize cell_;
    QPoint last_;
    bool isEmpty_ = true;
    int rowCount_ = 0;
    int panelHeight_;
};
