#pragma once

#include <QByteArray>
#include <bit>
#include <initializer_list>
#include <string_view>

/// Writes captions as a broadcaster does: pairs of seven bits with odd parity, in triplets.
namespace triplets {

constexpr char FirstField = char(0xFC);
constexpr char SecondField = char(0xFD);

inline char WithParity(int byte)
{
    return char(std::popcount(unsigned(byte) & 0x7F) % 2 ? byte & 0x7F : byte | 0x80);
}

/// Control codes, each written as two bytes in one number; a control code is sent twice.
inline QByteArray Codes(std::initializer_list<int> codes, char field = FirstField)
{
    QByteArray bytes;
    for (const int code : codes)
        for (int i = 0; i < 2; ++i)
            bytes += QByteArray(1, field) + WithParity(code >> 8) + WithParity(code);
    return bytes;
}

/// Letters, an even number of them.
inline QByteArray Letters(std::string_view text, char field = FirstField)
{
    QByteArray bytes;
    for (std::size_t i = 0; i + 1 < text.size(); i += 2)
        bytes += QByteArray(1, field) + WithParity(text[i]) + WithParity(text[i + 1]);
    return bytes;
}

constexpr int PopOn = 0x1420, RollUp2 = 0x1425, RollUp4 = 0x1427, PaintOn = 0x1429, TextPage = 0x142A;
constexpr int EraseShown = 0x142C, NewLine = 0x142D, EraseHidden = 0x142E, Show = 0x142F;
constexpr int LastRow = 0x1470, SecondChannel = 0x1C20;

} // namespace triplets
