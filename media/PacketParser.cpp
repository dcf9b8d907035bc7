#include "media/PacketParser.h"

#include "media/CaptionBytes.h"
#include <QHashFunctions>
#include <algorithm>

namespace media {

namespace {

constexpr int LargestUncodedVop = 16; ///< bytes of an MPEG-4 packet that says "no picture"

Ordering OrderingOf(AVCodecID codec, bool hasParser)
{
    const AVCodecDescriptor* descriptor = avcodec_descriptor_get(codec);
    if (codec == AV_CODEC_ID_H264 || codec == AV_CODEC_ID_HEVC)
        return Ordering::ByCount;
    const bool neverReorders = codec == AV_CODEC_ID_H263 || codec == AV_CODEC_ID_RV20;
    if (neverReorders || !descriptor || !(descriptor->props & AV_CODEC_PROP_REORDER))
        return Ordering::Straight;
    const bool typesAreKnown = hasParser && codec != AV_CODEC_ID_DIRAC && codec != AV_CODEC_ID_CAVS;
    return typesAreKnown ? Ordering::HoldReferences : Ordering::Unknown;
}

bool IsHiddenVp8(const AVPacket& packet)
{
    return !(packet.data[0] & 0x10);
}

/// A lone VP9 picture that is not to be shown; one inside a super frame always comes with a shown one.
bool IsHiddenVp9(const AVPacket& packet)
{
    const bool isSuperFrame = (packet.data[packet.size - 1] & 0xE0) == 0xC0;
    const uint8_t header = packet.data[0];
    const bool isProfile3 = (header & 0x30) == 0x30;
    const int shift = isProfile3 ? 1 : 0;
    const bool showsExisting = header & (0x08 >> shift);
    const bool isShown = header & (0x02 >> shift);
    return !isSuperFrame && !showsExisting && !isShown;
}

char TypeOf(int pictureType)
{
    switch (pictureType) {
    case AV_PICTURE_TYPE_I:
    case AV_PICTURE_TYPE_SI:
        return 'I';
    case AV_PICTURE_TYPE_P:
    case AV_PICTURE_TYPE_SP:
    case AV_PICTURE_TYPE_S:
        return 'P';
    case AV_PICTURE_TYPE_B:
    case AV_PICTURE_TYPE_BI:
        return 'B';
    default:
        return '?';
    }
}

Bytes DataOf(const AVPacket& packet)
{
    return { packet.data, size_t(packet.size) };
}

int64_t StampOf(int64_t stamp)
{
    return stamp == AV_NOPTS_VALUE ? NoStamp : stamp;
}

} // namespace

uint32_t CheckOf(const AVPacket& packet)
{
    return uint32_t(qHashBits(packet.data, size_t(packet.size), 0));
}

PacketParser::PacketParser(const AVCodecParameters& parameters)
    : codec_(parameters.codec_id)
    , context_(avcodec_alloc_context3(nullptr))
    , parser_(av_parser_init(parameters.codec_id))
    , unitLengthSize_(UnitLengthSize(parameters))
{
    ordering_ = OrderingOf(codec_, parser_ != nullptr);
    avcodec_parameters_to_context(context_.get(), &parameters);
    if (parser_)
        parser_->flags |= PARSER_FLAG_COMPLETE_FRAMES;
}

PacketFact PacketParser::Parse(const AVPacket& packet)
{
    captions_.clear();
    PacketFact fact;
    fact.pts = StampOf(packet.pts);
    fact.dts = StampOf(packet.dts);
    fact.pos = packet.pos;
    fact.duration = packet.duration;
    fact.size = uint32_t(packet.size);
    fact.check = CheckOf(packet);
    if (packet.flags & AV_PKT_FLAG_KEY)
        fact.Set(PacketFact::Key);
    if (packet.flags & AV_PKT_FLAG_DISCARD)
        fact.Set(PacketFact::Discard);
    if (packet.flags & AV_PKT_FLAG_CORRUPT)
        fact.Set(PacketFact::Doubtful);
    const bool isHidden = (codec_ == AV_CODEC_ID_VP8 && IsHiddenVp8(packet))
        || (codec_ == AV_CODEC_ID_VP9 && IsHiddenVp9(packet));
    if (isHidden)
        fact.Set(PacketFact::Hidden);
    if (ordering_ == Ordering::ByCount || ordering_ == Ordering::HoldReferences)
        ParsePicture(packet, fact);
    if (codec_ == AV_CODEC_ID_MPEG2VIDEO)
        captions_ = CaptionsInUserData(DataOf(packet));
    return fact;
}

void PacketParser::ParsePicture(const AVPacket& packet, PacketFact& fact)
{
    uint8_t* frame = nullptr;
    int size = 0;
    parser_->pict_type = AV_PICTURE_TYPE_NONE;
    av_parser_parse2(parser_.get(), context_.get(), &frame, &size, packet.data, packet.size, packet.pts,
        packet.dts, packet.pos);
    fact.type = TypeOf(parser_->pict_type);
    fact.order = parser_->output_picture_number;
    if (fact.type == '?' || (codec_ == AV_CODEC_ID_MPEG4 && packet.size <= LargestUncodedVop))
        fact.Set(PacketFact::Doubtful);
    if (ordering_ == Ordering::ByCount)
        return ParseUnits(packet, fact);
    if (fact.type == 'B')
        fact.Set(PacketFact::Unreferenced);
    PairFields(fact, false);
}

void PacketParser::ParseUnits(const AVPacket& packet, PacketFact& fact)
{
    int firstSlices = 0;
    bool isNeeded = codec_ != AV_CODEC_ID_H264;
    ForEachUnit(DataOf(packet), unitLengthSize_, [&](Bytes unit) {
        if (unit.size() < 3)
            return;
        const bool isAvc = codec_ == AV_CODEC_ID_H264;
        const int type = isAvc ? unit[0] & 0x1F : unit[0] >> 1 & 0x3F;
        const bool isPicture = isAvc ? type >= 1 && type <= 5 : type < 32;
        const bool startsAnew = isAvc ? type == 5 : type >= 16 && type <= 20;
        const bool isReference = isAvc && unit[0] & 0x60; // pictures and parameter sets may be
        isNeeded = isNeeded || isReference;
        if (isPicture && unit[isAvc ? 1 : 2] & 0x80)
            ++firstSlices;
        if (startsAnew)
            fact.Set(PacketFact::Restart);
        const bool isInformation = isAvc ? type == 6 : type == 39;
        if (isInformation)
            captions_ += CaptionsInSei(unit.subspan(isAvc ? 1 : 2));
    });
    if (!isNeeded)
        fact.Set(PacketFact::Unreferenced);
    PairFields(fact, firstSlices > 1);
}

void PacketParser::PairFields(PacketFact& fact, bool isWhole)
{
    const int structure = parser_->picture_structure;
    const bool isField = !isWhole
        && (structure == AV_PICTURE_STRUCTURE_TOP_FIELD || structure == AV_PICTURE_STRUCTURE_BOTTOM_FIELD);
    const bool completes = isField && openField_ && structure != openField_;
    if (completes)
        fact.Set(PacketFact::SecondField);
    openField_ = isField && !completes ? structure : 0;
}

} // namespace media
