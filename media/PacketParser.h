#pragma once

#include "media/DisplayOrder.h"
#include "media/Libav.h"
#include "media/PacketFact.h"
#include <QByteArray>

namespace media {

/// Reads from a packet, without decoding it, what is needed to put pictures in display order.
class PacketParser {
public:
    explicit PacketParser(const AVCodecParameters& parameters);

    /// The facts of the next packet in decode order.
    PacketFact Parse(const AVPacket& packet);
    /// The caption triplets that the packet parsed last carries for its picture; empty for most.
    const QByteArray& Captions() const { return captions_; }
    /// How this codec's packets are brought into display order.
    Ordering Order() const { return ordering_; }

private:
    void ParsePicture(const AVPacket& packet, PacketFact& fact);
    void ParseUnits(const AVPacket& packet, PacketFact& fact);
    void PairFields(PacketFact& fact, bool isWhole);

    AVCodecID codec_;
    Ordering ordering_ = Ordering::Straight;
    CodecPtr context_;
    ParserPtr parser_;
    int unitLengthSize_ = 0; ///< bytes of the length before each unit, 0 for start codes
    QByteArray captions_;
    int openField_ = 0; ///< structure of a first field that waits for its second
};

/// Checksum of a whole payload: where a file is damaged, a packet read again from another place may differ in
/// its middle alone.
uint32_t CheckOf(const AVPacket& packet);

} // namespace media
