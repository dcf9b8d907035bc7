#pragma once

#include <QByteArray>
#include <QList>
#include <QRect>

/// Makes GIF files of a few plain pages, by hand: no program of ours writes more than one.
class MovingGif {
public:
    explicit MovingGif(QSize size)
    {
        file_ = "GIF89a" + Word(size.width()) + Word(size.height()) + Bytes({ 0x81, 0, 0 });
        // black, red, green, blue
        file_ += Bytes({ 0, 0, 0, 255, 0, 0, 0, 255, 0, 0, 0, 255 });
    }
    /// A rectangle of one of the four colours, shown for so many hundredths of a second.
    MovingGif& Page(const QRect& place, int colour, int hundredths)
    {
        file_ += Bytes({ 0x21, 0xF9, 4, 4 }) + Word(hundredths) + Bytes({ 0, 0 });
        file_ += Bytes({ 0x2C }) + Word(place.x()) + Word(place.y()) + Word(place.width())
            + Word(place.height()) + Bytes({ 0 });
        file_ += Pixels(place.width() * place.height(), colour);
        return *this;
    }
    QByteArray File() const { return file_ + Bytes({ 0x3B }); }

private:
    static QByteArray Bytes(std::initializer_list<int> values)
    {
        QByteArray bytes;
        for (const int value : values)
            bytes += char(value);
        return bytes;
    }
    static QByteArray Word(int value) { return Bytes({ value & 0xFF, value >> 8 }); }
    /// Each pixel behind a code that starts the dictionary anew, so that all codes stay three bits wide.
    static QByteArray Pixels(int count, int colour)
    {
        constexpr int clear = 4, end = 5, bitsOfCode = 3;
        QByteArray packed;
        int held = 0, bits = 0;
        const auto put = [&](int code) {
            held |= code << bits;
            for (bits += bitsOfCode; bits >= 8; bits -= 8, held >>= 8)
                packed += char(held & 0xFF);
        };
        for (int i = 0; i < count; ++i) {
            put(clear);
            put(colour);
        }
        put(end);
        packed += char(held);
        QByteArray blocks = Bytes({ 2 });
        for (qsizetype at = 0; at < packed.size(); at += 255) {
            const QByteArray part = packed.mid(at, 255);
            blocks += char(part.size()) + part;
        }
        return blocks + Bytes({ 0 });
    }

    QByteArray file_;
};
