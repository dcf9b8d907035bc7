#pragma once

#include "media/DigitalWindow.h"
#include <QByteArray>
#include <array>

namespace media {

/// Reads the first service of digital captions (CEA-708), the one in the language of the programme: its text,
/// windows, colours and letters. Sizes, frames, effects and delays of windows are passed over.
class DigitalCaptions {
public:
    /// Takes the triplets of the next picture in display order. Whether they held anything for the service.
    bool Take(const QByteArray& triplets);
    /// What is said now.
    Caption Shown() const;

private:
    bool EndPacket();
    void TakeService(const uint8_t* bytes, size_t count);
    size_t Obey(const uint8_t* bytes, size_t count);
    void ObeyControl(const uint8_t* bytes);
    void ObeyWindowCommand(const uint8_t* bytes);
    void Write(char16_t letter);
    DigitalWindow& Window() { return windows_[current_]; }
    template <typename Act> void ForEachOf(int windows, Act act);

    std::array<DigitalWindow, 8> windows_;
    size_t current_ = 0;
    DigitalPen pen_;
    std::vector<uint8_t> packet_; ///< being collected
    std::vector<uint8_t> pending_; ///< of the service: a command whose rest is still to come
    int sequence_ = -1; ///< number of the packet before
};

} // namespace media
