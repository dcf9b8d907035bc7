#include "media/CaptionBytes.h"

#include <algorithm>
#include <vector>

namespace media {

namespace {

constexpr uint8_t Broadcast[] = { 'G', 'A', '9', '4', 3 }; // ATSC user data, captions
constexpr uint8_t Disc[] = { 'C', 'C', 1, 0xF8 }; // DVD user data of a group of pictures
constexpr uint8_t RegisteredBroadcast[] = { 0xB5, 0, 0x31 }; // ITU-T T.35: United States, ATSC

constexpr uint8_t UserDataCode = 0xB2;
constexpr uint8_t FirstSliceCode = 0x01;
constexpr uint8_t LastSliceCode = 0xAF;
constexpr int RegisteredUserData = 4; // a kind of SEI message

constexpr char FirstField = char(0xFC); // a valid triplet
constexpr char SecondField = char(0xFD);

bool StartsWith(Bytes data, Bytes mark)
{
    return data.size() >= mark.size() && std::equal(mark.begin(), mark.end(), data.begin());
}

QByteArray TripletsOfBroadcast(Bytes data)
{
    constexpr uint8_t HasCaptions = 0x40;
    constexpr uint8_t CountMask = 0x1F;
    constexpr size_t HeadBytes = 2; // flags with the count, a reserved byte
    if (data.size() < HeadBytes || !(data[0] & HasCaptions))
        return {};
    const size_t count = data[0] & CountMask;
    const Bytes triplets = data.subspan(HeadBytes);
    const size_t size = std::min(count * TripletBytes, triplets.size() / TripletBytes * TripletBytes);
    return { reinterpret_cast<const char*>(triplets.data()), qsizetype(size) };
}

/// Pairs for both fields by turns, for all pictures of the group. Their count is often wrong, and some discs
/// mark all of them as of the first field.
QByteArray TripletsOfDisc(Bytes data)
{
    constexpr uint8_t FirstFieldLeads = 0x80;
    constexpr uint8_t PairMark = 0xFE; // the bit behind it tells the field
    if (data.empty())
        return {};
    bool isFirst = data[0] & FirstFieldLeads;
    QByteArray triplets;
    for (Bytes pairs = data.subspan(1); pairs.size() >= TripletBytes && pairs[0] >= PairMark;
         pairs = pairs.subspan(TripletBytes), isFirst = !isFirst) {
        triplets += isFirst ? FirstField : SecondField;
        triplets.append(reinterpret_cast<const char*>(pairs.data()) + 1, 2);
    }
    return triplets;
}

QByteArray TripletsOf(Bytes userData)
{
    if (StartsWith(userData, Broadcast))
        return TripletsOfBroadcast(userData.subspan(std::size(Broadcast)));
    if (StartsWith(userData, Disc))
        return TripletsOfDisc(userData.subspan(std::size(Disc)));
    return {};
}

/// The coder puts a 3 behind two zeros, lest they begin a start code.
std::vector<uint8_t> Unescaped(Bytes unit)
{
    std::vector<uint8_t> plain;
    plain.reserve(unit.size());
    int zeros = 0;
    for (const uint8_t byte : unit) {
        const bool isEscape = zeros >= 2 && byte == 3;
        zeros = byte == 0 ? zeros + 1 : 0;
        if (!isEscape)
            plain.push_back(byte);
    }
    return plain;
}

/// A number written as a row of 255 and a rest; takes it off the data.
size_t TakeNumber(Bytes& data)
{
    size_t number = 0;
    while (!data.empty()) {
        const uint8_t byte = data[0];
        data = data.subspan(1);
        number += byte;
        if (byte != 0xFF)
            break;
    }
    return number;
}

} // namespace

QByteArray CaptionsInSei(Bytes unit)
{
    const std::vector<uint8_t> plain = Unescaped(unit);
    QByteArray triplets;
    Bytes rest = plain;
    while (rest.size() > 2) {
        const size_t kind = TakeNumber(rest);
        const size_t size = TakeNumber(rest);
        const Bytes message = rest.first(std::min(size, rest.size()));
        rest = rest.subspan(message.size());
        if (kind == RegisteredUserData && StartsWith(message, RegisteredBroadcast))
            triplets += TripletsOf(message.subspan(std::size(RegisteredBroadcast)));
    }
    return triplets;
}

QByteArray CaptionsInUserData(Bytes packet)
{
    QByteArray triplets;
    const uint8_t* const end = packet.data() + packet.size();
    const uint8_t* at = NextStartCode(packet.data(), end);
    while (end - at > 4 && !(at[3] >= FirstSliceCode && at[3] <= LastSliceCode)) {
        const uint8_t* const next = NextStartCode(at + 4, end);
        if (at[3] == UserDataCode)
            triplets += TripletsOf({ at + 4, next });
        at = next;
    }
    return triplets;
}

} // namespace media
