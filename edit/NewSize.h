#pragma once

#include <QSize>
#include <QString>

#include <array>

/// How the boxes and the bars of a new size in pixels move each other. What the user moves leads: it is never
/// moved back by what it has moved.
class NewSize {
public:
    enum Side { Width, Height };
    static constexpr Side Sides[] { Width, Height };
    static constexpr int WidestPicture = 16384;
    static constexpr int LargestNumber = 32767;

    struct Bar {
        int minimum = 1;
        int maximum = 1;
        int value = 1;

        bool Holds(int number) const { return number >= minimum && number <= maximum; }
    };

    NewSize() = default;
    /// Begins with the size of a picture, which is not empty.
    explicit NewSize(QSize source);

    const Bar& BarOf(Side side) const { return bars_[side]; }
    QString BoxOf(Side side) const { return boxes_[side]; }
    void SetKeepsAspect(bool keeps) { keepsAspect_ = keeps; }

    /// The user moved a bar: its box follows and, when the aspect ratio is kept, the other side.
    void MoveBar(Side side, int value);
    /// The user changed a box. A text that is no number of its bar's range moves nothing.
    void Type(Side side, const QString& text);
    /// The box of the aspect ratio was clicked, on or off: the height follows the width once.
    void Recouple();

    /// A box that holds LargestNumber or more is set to it, and its bar to its end; the other side stays.
    /// True when there was one.
    bool HoldBoxes();
    /// Whether both boxes hold numbers of their bars' ranges.
    bool IsAcceptable() const;

private:
    void Couple(Side leading);
    void SetBar(Side side, int value);

    QSize source_;
    std::array<Bar, 2> bars_;
    std::array<QString, 2> boxes_;
    bool keepsAspect_ = true;
};
