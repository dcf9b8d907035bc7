#include "media/DigitalCaptions.h"

#include "media/CaptionBytes.h"
#include <algorithm>
#include <utility>

namespace media {

namespace {

constexpr int OurService = 1;
constexpr char PacketStart = 7; // of the bits 2 (valid), 1 and 0 (kind)
constexpr char PacketRest = 6;

enum Control : uint8_t {
    BackspaceCode = 0x08,
    ClearCode = 0x0C,
    NewLineCode = 0x0D,
    LineAnewCode = 0x0E,
    Extended = 0x10,
    WideLetter = 0x18,
};
enum WindowCommand : uint8_t {
    SetCurrent = 0x80, // to 0x87
    ClearWindows = 0x88,
    DisplayWindows = 0x89,
    HideWindows = 0x8A,
    ToggleWindows = 0x8B,
    DeleteWindows = 0x8C,
    Reset = 0x8F,
    SetPen = 0x90,
    SetPenColour = 0x91,
    SetPenPlace = 0x92,
    SetAttributes = 0x97,
    Define = 0x98, // to 0x9F
};

/// Bytes behind each code from 88 to 97 hexadecimal.
constexpr uint8_t WindowParameters[] = { 1, 1, 1, 1, 1, 1, 0, 0, 2, 3, 2, 0, 0, 0, 0, 4 };

/// Bytes of a command or letter with all that belongs to it.
size_t LengthOf(uint8_t code, uint8_t next)
{
    if (code == Extended) {
        constexpr size_t controls[] = { 0, 1, 2, 3 }; // for each eight codes
        const size_t more = next < 0x20   ? controls[next >> 3]
            : next >= 0x80 && next < 0x90 ? 4 + (next >> 3 & 1)
                                          : 0;
        return 2 + more;
    }
    if (code < 0x20)
        return code < Extended ? 1 : code < WideLetter ? 2 : 3;
    if (code >= Define && code < 0xA0)
        return 1 + DigitalWindow::ParameterBytes;
    return code >= ClearWindows && code < Define ? 1 + WindowParameters[code - ClearWindows] : 1;
}

struct LetterRow {
    uint8_t code;
    char16_t letter;
};
/// The letters behind the extending code.
constexpr LetterRow ExtendedLetters[] = {
    { 0x20, u' ' },
    { 0x21, u'\u00A0' },
    { 0x25, u'…' },
    { 0x2A, u'Š' },
    { 0x2C, u'Œ' },
    { 0x30, u'█' },
    { 0x31, u'‘' },
    { 0x32, u'’' },
    { 0x33, u'“' },
    { 0x34, u'”' },
    { 0x35, u'•' },
    { 0x39, u'™' },
    { 0x3A, u'š' },
    { 0x3C, u'œ' },
    { 0x3D, u'℠' },
    { 0x3F, u'Ÿ' },
    { 0x76, u'⅛' },
    { 0x77, u'⅜' },
    { 0x78, u'⅝' },
    { 0x79, u'⅞' },
    { 0x7A, u'│' },
    { 0x7B, u'┐' },
    { 0x7C, u'└' },
    { 0x7D, u'─' },
    { 0x7E, u'┘' },
    { 0x7F, u'┌' },
};

char16_t ExtendedLetter(uint8_t code)
{
    const auto* found = std::ranges::find(ExtendedLetters, code, &LetterRow::code);
    return found == std::end(ExtendedLetters) ? u'_' : found->letter;
}

bool IsLetter(uint8_t code)
{
    return (code >= 0x20 && code < 0x80) || code >= 0xA0;
}

/// ASCII and Latin-1, but for one.
char16_t LetterOf(uint8_t code)
{
    return code == 0x7F ? u'♪' : code;
}

/// Two bits of each colour.
QRgb ColourOf(uint8_t bits)
{
    const auto part = [bits](int shift) { return (bits >> shift & 3) * 85; };
    return qRgb(part(4), part(2), part(0));
}

/// Bytes of a packet, its header included, as the header tells.
size_t PacketSize(uint8_t header)
{
    const size_t code = header & 0x3F;
    return code == 0 ? 128 : code * 2;
}

} // namespace

bool DigitalCaptions::Take(const QByteArray& triplets)
{
    bool isOurs = false;
    for (qsizetype at = 0; at + TripletBytes <= triplets.size(); at += TripletBytes) {
        const char* const triplet = triplets.constData() + at;
        const int kind = triplet[0] & 7;
        if (kind == PacketStart)
            packet_.clear();
        else if (kind != PacketRest || packet_.empty())
            continue;
        packet_.push_back(uint8_t(triplet[1]));
        packet_.push_back(uint8_t(triplet[2]));
        if (packet_.size() >= PacketSize(packet_[0]))
            isOurs = EndPacket() || isOurs;
    }
    return isOurs;
}

/// A packet holds blocks for several services. Whether there was one for ours.
bool DigitalCaptions::EndPacket()
{
    constexpr int ExtendedService = 7;
    const std::vector<uint8_t> packet = std::exchange(packet_, {});
    const int sequence = packet[0] >> 6;
    if (sequence_ >= 0 && sequence != ((sequence_ + 1) & 3))
        pending_.clear(); // a packet is missing, and with it the rest of the command
    sequence_ = sequence;
    bool isOurs = false;
    for (size_t at = 1; at < packet.size();) {
        const int service = packet[at] >> 5;
        const size_t asked = packet[at] & 0x1F;
        at += service == ExtendedService ? 2 : 1;
        if (service == 0 || at >= packet.size())
            break;
        const size_t count = std::min(asked, packet.size() - at);
        if (service == OurService) {
            TakeService(packet.data() + at, count);
            isOurs = true;
        }
        at += count;
    }
    return isOurs;
}

void DigitalCaptions::TakeService(const uint8_t* bytes, size_t count)
{
    pending_.insert(pending_.end(), bytes, bytes + count);
    size_t done = 0;
    while (done < pending_.size()) {
        const size_t length = Obey(pending_.data() + done, pending_.size() - done);
        if (length == 0)
            break;
        done += length;
    }
    pending_.erase(pending_.begin(), pending_.begin() + std::ptrdiff_t(done));
}

/// Does what the first code says; its length, or 0 when it is not whole yet.
size_t DigitalCaptions::Obey(const uint8_t* bytes, size_t count)
{
    const uint8_t code = bytes[0];
    if (code == Extended && count < 2)
        return 0;
    const size_t length = LengthOf(code, count > 1 ? bytes[1] : 0);
    if (count < length)
        return 0;
    if (IsLetter(code))
        Write(LetterOf(code));
    else if (code < 0x20)
        ObeyControl(bytes);
    else
        ObeyWindowCommand(bytes);
    return length;
}

void DigitalCaptions::Write(char16_t letter)
{
    Window().Write(letter, pen_);
}

void DigitalCaptions::ObeyControl(const uint8_t* bytes)
{
    switch (bytes[0]) {
    case BackspaceCode:
        return Window().Backspace();
    case ClearCode:
        return Window().Clear();
    case NewLineCode:
        return Window().NewLine();
    case LineAnewCode:
        return Window().BeginLineAnew();
    case Extended:
        if (IsLetter(bytes[1]))
            Write(ExtendedLetter(bytes[1]));
        return;
    case WideLetter:
        return Write(char16_t(bytes[1] << 8 | bytes[2]));
    default:
        return;
    }
}

template <typename Act> void DigitalCaptions::ForEachOf(int windows, Act act)
{
    for (size_t i = 0; i < windows_.size(); ++i)
        if (windows >> i & 1)
            act(windows_[i]);
}

void DigitalCaptions::ObeyWindowCommand(const uint8_t* bytes)
{
    if (bytes[0] < ClearWindows) {
        current_ = bytes[0] - SetCurrent;
        return;
    }
    if (bytes[0] >= Define) {
        current_ = bytes[0] - Define;
        return Window().Define(bytes + 1);
    }
    switch (bytes[0]) {
    case ClearWindows:
        return ForEachOf(bytes[1], [](DigitalWindow& window) { window.Clear(); });
    case DisplayWindows:
        return ForEachOf(bytes[1], [](DigitalWindow& window) { window.Show(true); });
    case HideWindows:
        return ForEachOf(bytes[1], [](DigitalWindow& window) { window.Show(false); });
    case ToggleWindows:
        return ForEachOf(bytes[1], [](DigitalWindow& window) { window.Show(!window.IsVisible()); });
    case DeleteWindows:
        return ForEachOf(bytes[1], [](DigitalWindow& window) { window.Delete(); });
    case Reset:
        windows_ = {};
        pen_ = {};
        return;
    case SetPen:
        pen_.isItalic = bytes[2] & 0x80;
        pen_.isUnderlined = bytes[2] & 0x40;
        return;
    case SetPenColour:
        pen_.colour = ColourOf(bytes[1]);
        return;
    case SetPenPlace:
        return Window().MovePen(bytes[1] & 0x0F, bytes[2] & 0x3F);
    case SetAttributes:
        return Window().Justify(bytes[3] & 3);
    default:
        return;
    }
}

Caption DigitalCaptions::Shown() const
{
    Caption caption;
    for (const DigitalWindow& window : windows_)
        if (window.IsVisible())
            window.AddTo(caption);
    std::ranges::stable_sort(caption, {}, &CaptionRow::row);
    return caption;
}

} // namespace media
