#include "media/LineCaptions.h"

#include "media/CaptionBytes.h"
#include <algorithm>
#include <bit>

namespace media {

namespace {

// Second bytes of the control codes that begin with 14 hexadecimal.
constexpr int TextRestart = 0x2A; // begins a page of text, which is no caption
constexpr int ResumeText = 0x2B;
constexpr int EraseShown = 0x2C;
constexpr int EraseHidden = 0x2E;
constexpr int CaptionModes[] = { 0x20, 0x25, 0x26, 0x27, 0x29, 0x2F }; // load, roll up 2 to 4, paint on, show
constexpr int FirstLetter = 0x20;

/// "Flash on", which the library does not know: it does nothing but stand between two codes.
constexpr char Separator[] = { char(0xFC), char(0x94), char(0xA8) };

bool IsControl(int first)
{
    return first >= 0x10 && first <= 0x1F;
}

bool HasParity(char byte)
{
    return std::popcount(uint8_t(byte)) % 2 == 1;
}

CodecPtr MakeDecoder()
{
    const AVCodec* codec = avcodec_find_decoder(AV_CODEC_ID_EIA_608);
    CodecPtr context(codec ? avcodec_alloc_context3(codec) : nullptr);
    if (!context)
        return nullptr;
    context->pkt_timebase = { 1, 1 };
    Options options;
    options.Set("real_time", "1"); // else a text comes when it is over
    options.Set("real_time_latency_msec", "0");
    options.Set("data_field", "first");
    return avcodec_open2(context.get(), codec, options.Address()) >= 0 ? std::move(context) : nullptr;
}

/// The text behind the eight fields of an ASS event.
QByteArray TextOf(const char* event)
{
    constexpr int Fields = 8;
    QByteArray text(event);
    for (int field = 0; field < Fields; ++field)
        text = text.mid(text.indexOf(',') + 1);
    return text;
}

} // namespace

std::optional<QByteArray> LineCaptions::Take(int number, const QByteArray& triplets)
{
    const QByteArray ours = OursOf(triplets);
    if (ours.isEmpty())
        return std::nullopt;
    if (!decoder_)
        decoder_ = MakeDecoder();
    return decoder_ ? Decode(number, ours) : std::nullopt;
}

/// The channels of a field share its pairs: a control code says whose the letters are that follow. The
/// library takes those of all for one text.
bool LineCaptions::IsOurs(int first, int second)
{
    const bool isControl = IsControl(first);
    if (isControl)
        isSecondChannel_ = first & 0x08;
    const bool isMode = first == 0x14 && !isSecondChannel_;
    if (isMode && (second == TextRestart || second == ResumeText))
        isInText_ = true;
    else if (isMode && std::ranges::find(CaptionModes, second) != std::end(CaptionModes))
        isInText_ = false;
    const bool clears = isMode && (second == EraseShown || second == EraseHidden);
    return (isControl || first >= FirstLetter) && !isSecondChannel_ && (!isInText_ || clears);
}

/// A control code that comes twice in a row counts once; only a third one counts again.
bool LineCaptions::IsRepeat(int first, int second)
{
    const int code = IsControl(first) ? first << 8 | second : 0;
    const bool isRepeat = code != 0 && code == lastCode_;
    lastCode_ = isRepeat ? 0 : code;
    return isRepeat;
}

QByteArray LineCaptions::OursOf(const QByteArray& triplets)
{
    constexpr char ValidFirstField = 4; // of the bits 2 (valid), 1 and 0 (kind)
    constexpr char Letters = 0x7F; // without the parity
    QByteArray ours;
    for (qsizetype at = 0; at + TripletBytes <= triplets.size(); at += TripletBytes) {
        const char* const triplet = triplets.constData() + at;
        const int first = triplet[1] & Letters;
        const int second = triplet[2] & Letters;
        const bool isBroken = IsControl(first) && !(HasParity(triplet[1]) && HasParity(triplet[2]));
        if ((triplet[0] & 7) != ValidFirstField || isBroken || IsRepeat(first, second)
            || !IsOurs(first, second))
            continue;
        // The library passes over every code that equals the one before it, however often it comes.
        if (IsControl(first))
            ours.append(Separator, TripletBytes);
        ours.append(triplet, TripletBytes);
    }
    return ours;
}

/// What is said from now on; none when that stays as it is.
std::optional<QByteArray> LineCaptions::Decode(int number, const QByteArray& triplets)
{
    PacketPtr packet(av_packet_alloc());
    if (!packet || av_new_packet(packet.get(), int(triplets.size())) < 0)
        return std::nullopt;
    std::ranges::copy(triplets, packet->data);
    packet->pts = number;
    AVSubtitle subtitle {};
    int isThere = 0;
    std::optional<QByteArray> text;
    if (avcodec_decode_subtitle2(decoder_.get(), &subtitle, &isThere, packet.get()) < 0 || !isThere)
        return std::nullopt;
    if (subtitle.num_rects > 0)
        text = TextOf(subtitle.rects[subtitle.num_rects - 1]->ass);
    avsubtitle_free(&subtitle);
    return text;
}

} // namespace media
