"""Every test clip: its name, the numbers that its pictures carry in display order, its tags, the property it is made
for, and its recipe.

Numbers are ranges ("0-49,0-49"); "?49" stands for 49 pictures whose number the damage may have made unreadable or
wrong; a clip without any bar code gives its number of pictures instead.
"""

import dataclasses

import streams
from recipes import (AAC, KEEP_TIMES, MP2, MP3, WMA, X264, X265, Recipe, convert, copied_stream, encode, generated,
                     interlaced, joined, noise, slice_of, sound, stream, text, through_pipe, two_pass, two_steps,
                     video)


@dataclasses.dataclass(frozen=True)
class Clip:
    name: str
    numbers: str
    tags: tuple
    property: str
    recipe: Recipe
    uncoded_pictures: int = 0

    @property
    def pictures(self):
        return self.uncoded_pictures + sum(map(length, filter(None, self.numbers.split(","))))

    def manifest_row(self):
        tags = ",".join(map(str, self.tags))
        return self.name, str(self.pictures), self.numbers, tags, self.property


def length(numbers):
    if numbers.startswith("?"):
        return int(numbers[1:] or 1)
    first, _, last = numbers.partition("-")
    return int(last or first) - int(first) + 1


def coded(name, numbers, tags, property, recipe):
    return Clip(name, numbers, tags if isinstance(tags, tuple) else (tags,), property, recipe)


def uncoded(name, pictures, property, recipe):
    return Clip(name, "", (), property, recipe, pictures)


CLOSED_GOP = "-x264-params scenecut=0"
OPEN_GOP = "-x264-params open-gop=1:scenecut=0:b-pyramid=2"
H265 = "-x265-params log-level=error:pools=2:"
INTERLACED = "-top 1 -flags +ilme+ildct"
IRREGULAR = "settb=1/1000,setpts='(N*50+10*mod(N,3)+if(gte(N,50),3000,0))/1000/TB'"
DOUBLED = "setpts='(N*40+20*mod(N,3))/1000/TB'"
NTSC = "-f mpegvideo -framerate 30000/1001"
FILM = "-f mpegvideo -framerate 24000/1001"
MASTER = "editlist_base.mp4"

RANDOM_ACCESS = [
    coded("h264_closed.mp4", "0-99", 1, "base case: 25 a second, closed GOP of 25, 3 B-frames, AAC",
          encode(video(4, 1), sound(4), X264, "-g 25 -bf 3", CLOSED_GOP, AAC)),
    coded("faststart.mp4", "0-99", 1, "the base case with the index in front: plays over HTTP without ranges",
          convert("h264_closed.mp4", "-movflags +faststart")),
    coded("h264_opengop.mp4", "0-99", 2, "open GOP: leading B-frames precede each non-IDR I in display order",
          encode(video(4, 2), X264, "-g 24 -bf 3", OPEN_GOP)),
    coded("h264_opengop.ts", "0-99", 3, "open GOP without an index in the container",
          encode(video(4, 3), sound(4), X264, "-g 24 -bf 3", OPEN_GOP, MP2, "-f mpegts")),
    coded("h264_longgop.mp4", "0-299", 4, "one key frame only: the worst seek, back steps need a cache",
          encode(video(12, 4), X264, "-g 9999 -keyint_min 9999 -bf 3 -x264-params scenecut=0:keyint=infinite")),
    coded("h264_intrarefresh.mkv", "0-149", 5, "intra refresh: packets flagged key that are no clean entry",
          encode(video(6, 5), X264, "-g 25 -x264-params intra-refresh=1:scenecut=0")),
    coded("h264_mbaff.ts", "0-99", 6, "interlaced MBAFF, top field first, MPEG-TS",
          encode(interlaced(4, 6, "320x240"), X264, INTERLACED, "-x264-params tff=1 -g 25 -bf 2 -f mpegts")),
    coded("hevc_opengop.mp4", "0-95", 7, "HEVC CRA with RASL leading pictures",
          encode(video(4, 7, rate="24"), X265,
                 H265 + "keyint=24:min-keyint=24:scenecut=0:open-gop=1:bframes=4:b-pyramid=1")),
    coded("hevc_short.mp4", "0-160", 8, "HEVC GOP of 3 at 10 a second: back after the decoder was drained",
          encode(video(16.1, 8, rate="10"), X265, H265 + "keyint=3")),
    coded("h264_raw.h264", "0-99", 9, "Annex B: no time stamps, no index, no duration",
          encode(video(4, 9), X264, "-g 25 -bf 2 -f h264")),
    coded("h264_10bit.mkv", "0-49", 10, "10 bit 4:2:2",
          encode(video(2, 10), "-c:v libx264 -preset veryfast -crf 28 -pix_fmt yuv422p10le -g 10")),
]

TIME_STAMPS = [
    coded("h264_bframes.avi", "0-99", 11, "H.264 with B-frames in AVI: decoding times only",
          encode(video(4, 11), sound(4), X264, "-g 25 -bf 3", MP3)),
    coded("xvid_packed.avi", "0-96,99", 12, "packed B-frames and N-VOPs in AVI (the encoder loses 97 and 98)",
          encode(video(4, 12), sound(4), "-c:v libxvid -qscale:v 4 -g 25 -bf 2", MP3)),
    coded("mpeg4_bf.avi", "0-99", 13, "MPEG-4 ASP B-frames in AVI, not packed",
          encode(video(4, 13), sound(4), "-c:v mpeg4 -vtag XVID -qscale:v 4 -g 25 -bf 2", MP3)),
    coded("mpeg4_nvop.avi", "0-3,6-49,51-99", 13, "pictures that say \"not coded\" in AVI: 100 time slots, 97 pictures",
          slice_of("mpeg4_bf.avi", lambda data: streams.with_uncoded_pictures(data, (5, 6, 51)))),
    coded("avi_dropped.avi", "0-74", 14, "empty chunks (dropped frames): 100 time slots, 75 coded pictures",
          encode(video(4, 14, before="select='not(eq(mod(n,4),1))'"), "-c:v mpeg4 -qscale:v 4 -g 12", KEEP_TIMES)),
    coded("vfr.mp4", "0-99", 15, "irregular times (60, 60, 30 ms), a hole of 3 s in the middle",
          encode(video(4, 15, before=IRREGULAR), X264, "-enc_time_base 1/1000 -g 30 -bf 2", KEEP_TIMES,
                 "-video_track_timescale 1000")),
    coded("vfr.mkv", "0-99", 1, "the same irregular times in Matroska's 1 ms clock, with sound",
          encode(video(4, 1, before=IRREGULAR), sound(7), X264, "-enc_time_base 1/1000 -g 30 -bf 2", KEEP_TIMES, AAC)),
    coded("dup_pts.mkv", "0-99", 4, "every third picture has its predecessor's time: a time names no frame",
          encode(video(4, 4, before=DOUBLED), X264, "-g 30 -bf 2", KEEP_TIMES)),
    coded("ntsc_ms.mkv", "0-119", 2, "59.94 a second rounded to 1 ms: frame numbers must not drift",
          encode(video(2.002, 2, rate="60000/1001"), X264, "-g 30 -bf 2")),
    coded("start_offset.ts", "0-99", 3, "the first time is 10 s, not zero",
          encode(video(4, 3), sound(4), X264, "-g 25 -bf 2", MP2, "-output_ts_offset 10 -f mpegts")),
    coded("pts_wrap.ts", "0-149", 4, "the 33-bit clock wraps 3 s into the file",
          encode(video(6, 4), sound(6), X264, "-g 25 -bf 2", MP2, "-muxdelay 0 -output_ts_offset 95440.7 -f mpegts")),
    coded("audio_early.mkv", "0-74", 5, "the first picture comes 1 s after the sound",
          encode("-itsoffset 1", video(3, 5), sound(4), X264, "-g 25", AAC, "-map 0 -map 1")),
    coded(MASTER, "0-99", 6, "the clip that others are copied from",
          encode(video(4, 6), sound(4), X264, "-g 25 -bf 3", CLOSED_GOP, AAC)),
    coded("editlist.mp4", "35-99", 6, "copied from 1.4 s on: edit list, the first 10 packets are to be discarded",
          convert(MASTER, before="-ss 1.4")),
    coded("negcts.mp4", "0-99", 6, "negative composition offsets, no edit list",
          convert(MASTER, "-map 0:v -movflags +negative_cts_offsets")),
    coded("frag.mp4", "0-99", 6, "fragments without a global index",
          convert(MASTER, "-movflags frag_keyframe+empty_moov+default_base_moof")),
    coded("nocues.mkv", "0-99", 6, "Matroska without cues and duration", through_pipe(MASTER, "matroska")),
    coded("audio_gap.mkv", "0-99", 8, "a hole of 1 s in the sound's time line",
          encode(video(4, 8), generated("sine=f=440:r=44100:d=4,aselect='not(between(t,1,2))'"), X264,
                 "-g 25 -c:a pcm_s16le -ac 1")),
    coded("audio_change.ts", "0-49,0-49", (6, 7), "sound changes from 44.1 kHz mono to 48 kHz stereo at 2 s",
          joined(stream(video(2, 6), sound(2), X264, "-g 25", MP2, "-ar 44100 -ac 1"),
                 stream(video(2, 7), sound(2), X264, "-g 25", MP2, "-ar 48000 -ac 2 -output_ts_offset 2"))),
    coded("ts_discont.ts", "0-99,0-99", (3, 9), "two streams glued: times jump back to the start",
          joined(copied_stream("h264_opengop.ts"), stream(video(4, 9), sound(4), X264, "-g 24", MP2),
                 needs=("h264_opengop.ts",))),
]

CONTAINERS = [
    coded("mpeg2_interlaced.mpg", "0-99", 7, "MPEG-2 interlaced, IBBP, program stream: no index",
          encode(interlaced(4, 7, "352x288"), sound(4), "-c:v mpeg2video -b:v 1500k", INTERLACED, "-g 15 -bf 2", MP2,
                 "-b:a 96k -f vob")),
    coded("mpeg2_closed.m2v", "0-74", 8, "MPEG-2 elementary stream, no time stamps",
          encode(video(3, 8), "-c:v mpeg2video -q:v 6 -g 12 -bf 2 -f mpeg2video")),
    coded("mpeg1.mpg", "0-74", 9, "MPEG-1 system stream",
          encode(video(3, 9, "352x288"), sound(3), "-c:v mpeg1video -b:v 1150k -maxrate 1150k -bufsize 327k -g 15 -bf 2",
                 MP2, "-b:a 96k -f mpeg")),
    coded("wmv2.wmv", "0-99", 10, "ASF with its index, WMV8 and WMA2",
          encode(video(4, 10), sound(4), "-c:v wmv2 -q:v 5 -g 25", WMA)),
    coded("wmv_noindex.asf", "0-99", 11, "ASF without its index object",
          two_steps((video(4, 11), sound(4), "-c:v msmpeg4 -q:v 5 -g 25", WMA, "-f asf"), "indexed.asf",
                    lambda job, part: job.output.write_bytes(streams.without_asf_index(part.read_bytes())))),
    coded("flv1.flv", "0-99", 12, "FLV without an index of key frames",
          encode(video(4, 12), sound(4), "-c:v flv -q:v 5 -g 25", MP3, "-ar 44100")),
    coded("vp8_altref.webm", "0-99", 13, "VP8 with hidden packets: 106 packets, 100 pictures",
          two_pass(video(4, 13), "-c:v libvpx -b:v 200k -g 100 -auto-alt-ref 1 -lag-in-frames 25 -quality good",
                   "-cpu-used 1")),
    coded("vp9.webm", "0-99", 14, "VP9 super-frames",
          encode(video(4, 14), "-c:v libvpx-vp9 -b:v 300k -g 30 -auto-alt-ref 1 -lag-in-frames 16 -deadline good",
                 "-cpu-used 5 -row-mt 1")),
    coded("av1.mp4", "0-74", 15, "AV1 with hidden frames",
          encode(video(3, 15), "-c:v libsvtav1 -preset 10 -crf 45 -g 25 -pix_fmt yuv420p")),
    coded("theora.ogv", "0-74", 1, "Theora in Ogg: granules instead of times",
          encode(video(3, 1), sound(3), "-c:v libtheora -q:v 6 -g 25 -c:a libvorbis -ac 2")),
    coded("mjpeg.avi", "0-74", 2, "every picture a key frame, full range",
          encode(video(3, 2), sound(3), "-c:v mjpeg -q:v 5 -c:a pcm_s16le")),
    coded("raw.mjpeg", "0-49", 3, "JPEG files one after another: no time stamps",
          encode(video(2, 3), "-c:v mjpeg -q:v 5 -f mjpeg")),
    coded("huffyuv.avi", "0-24", 4, "lossless, every picture a key frame",
          encode(video(1, 4), "-c:v huffyuv -pix_fmt yuv422p")),
    coded("ffv1.mkv", "0-49", 5, "FFV1 with groups, lossless",
          encode(video(2, 5), "-c:v ffv1 -level 3 -g 10 -pix_fmt yuv420p")),
    coded("msvideo1.avi", "0-24", 6, "555 delta codec, stored upside down",
          encode(video(1, 6), "-c:v msvideo1 -pix_fmt rgb555le")),
    coded("qtrle.mov", "0-24", 7, "QuickTime animation, delta frames, RGB",
          encode(video(1, 7, picture="color=gray"), "-c:v qtrle -g 10")),
    coded("prores.mov", "0-24", 8, "ProRes 10 bit in MOV",
          encode(video(1, 8), "-c:v prores_ks -profile:v 0 -pix_fmt yuv422p10le")),
    coded("anim.gif", "0-29", 9, "GIF: delays of 120 and 40 ms, palette",
          encode(video(4, 9, "160x120", before="select='lt(n,30)',setpts='(N*80+40*mod(N,2))/1000/TB'",
                       after="split[a][b];[a]palettegen=max_colors=32[p];[b][p]paletteuse=dither=none"),
                 KEEP_TIMES, "-loop 0")),
    coded("dv.avi", "0-24", 10, "DV PAL, interlaced, bottom field first",
          encode(video(1, 10, "720x576"), "-c:v dvvideo -pix_fmt yuv420p")),
    coded("cinepak.avi", "0-19", 5, "Cinepak with inter-coded pictures",
          encode(video(2, 5, "160x120", "10", picture="color=gray"), "-c:v cinepak -max_strips 1")),
    coded("h263.3gp", "0-49", 6, "H.263 at 176x144 in 3GP",
          encode(video(2, 6, "176x144"), "-c:v h263 -q:v 4 -g 12")),
    coded("rv20.rm", "0-49", 7, "RealVideo 2 in RealMedia",
          encode(video(2, 7), "-c:v rv20 -q:v 4 -g 12")),
    coded("raw.y4m", "0-9", 8, "YUV4MPEG", encode(video(0.4, 8, "160x120"), "-pix_fmt yuv420p")),
    coded("mxf.mxf", "0-49", 11, "MXF OP1a, MPEG-2 with long groups",
          encode(video(2, 11, "720x576"), "-c:v mpeg2video -q:v 10 -g 12 -bf 2 -pix_fmt yuv420p")),
]

PICTURES = [
    coded("anamorphic.mpg", "0-24", 12, "720x576 shown as 16:9 (pixels of 64:45)",
          encode(video(1, 12, "720x576", after="setsar=64/45"), "-c:v mpeg2video -q:v 10 -g 12 -f vob")),
    coded("rotate90.mp4", "0-24", 13, "display matrix: shown rotated by 90 degrees; read before the rotation",
          two_steps((video(1, 13), X264), "upright.mp4",
                    lambda job, part: job.ffmpeg("-i", part, "-c copy -metadata:s:v:0 rotate=90", job.output))),
    coded("odd_size.mkv", "0-24", 14, "321x241 in 4:2:0", encode(video(1, 14, "321x241"), "-c:v ffv1 -pix_fmt yuv420p")),
    coded("bt709_full.mp4", "0-24", 15, "BT.709, full range",
          encode(video(1, 15, "640x360", after="scale=out_range=full:out_color_matrix=bt709"),
                 "-c:v libx264 -preset veryfast -crf 24 -pix_fmt yuvj420p -colorspace bt709 -color_primaries bt709",
                 "-color_trc bt709 -color_range pc")),
    coded("res_change.ts", "0-49,0-49", (1, 2), "320x240 becomes 480x360 after 50 pictures",
          joined(stream(video(2, 1), X264, "-g 25"),
                 stream(video(2, 2, "480x360"), X264, "-g 25 -output_ts_offset 2"))),
    coded("alpha.mov", "0-9", 3, "half transparent RGBA",
          encode(video(0.4, 3, "160x120", after="format=rgba,colorchannelmixer=aa=0.5"), "-c:v png")),
    coded("hd1080.mp4", "0-124", 4, "1920x1080 for speed and scaling",
          encode(video(5, 4, "1920x1080"), sound(5),
                 "-c:v libx264 -preset ultrafast -crf 30 -pix_fmt yuv420p -g 50 -bf 2", AAC)),
]

LAYOUT = [
    coded("one_frame.mp4", "0", 5, "a single picture", encode(video(1, 5), "-frames:v 1", X264)),
    coded("two_frames.avi", "0-1", 6, "two pictures", encode(video(1, 6), "-frames:v 2 -c:v mjpeg")),
    coded("slow_halffps.mkv", "0-9", 7, "one picture every 2 s", encode(video(20, 7, rate="1/2"), X264, "-g 5")),
    coded("long_10fps.mp4", "0-199", 10, "20 s at ten pictures a second",
          encode(video(20, 10, rate="10"), X264, "-g 50")),
    coded("fast_240fps.mp4", "0-239", 8, "240 a second", encode(video(1, 8, rate="240"), X264, "-g 60 -bf 2")),
    coded("audio_longer.mkv", "0-49", 9, "the sound goes on for 3 s after the last picture",
          encode(video(2, 9), sound(5), X264, "-g 25", AAC)),
    coded("video_longer.mkv", "0-124", 10, "the pictures go on for 3 s after the sound",
          encode(video(5, 10), sound(2), X264, "-g 25", AAC)),
    coded("no_audio.mp4", "0-49", 11, "no sound", encode(video(2, 11), X264, "-g 25")),
    uncoded("audio_only.m4a", 0, "no pictures", encode(sound(2), AAC)),
    uncoded("cover.mp3", 0, "an attached picture, which is no video",
            two_steps((generated("color=red:s=64x64"), "-frames:v 1"), "cover.png",
                      lambda job, part: job.ffmpeg(sound(2), "-i", part, "-map 0 -map 1", MP3,
                                                   "-c:v copy -disposition:v attached_pic", job.output))),
    coded("two_video.mkv", "0-49", 12, "two videos (tags 12 and 13) and two sounds",
          encode(video(2, 12), video(2, 13, "160x120"), sound(2), generated("sine=f=880:d=2"),
                 "-map 0 -map 1 -map 2 -map 3", X264, "-g 25", AAC)),
    coded("avsync.mp4", "0-124", 14, "a white flash on 2 pictures and a beep of 80 ms at every full second",
          encode(video(5, 14, before="drawbox=t=fill:c=white:enable='lt(mod(n,25),2)'"),
                 generated("aevalsrc='0.8*sin(2*PI*1000*t)*lt(mod(t,1),0.08)':s=48000:d=5"), X264, "-g 25 -bf 2", AAC)),
    uncoded("static_same.mp4", 100, "100 equal pictures",
            encode(generated("color=gray:s=320x240:r=25:d=4"), X264, "-g 25 -bf 3")),
    coded("pcm_mono8.avi", "0-24", 15, "8 bit PCM, 11025 Hz, mono",
          encode(video(1, 15), generated("sine=r=11025:d=1"), "-c:v mjpeg -c:a pcm_u8")),
    coded("surround.mkv", "0-24", 1, "5.1 channels of AC-3",
          encode(video(1, 1), generated("aevalsrc='sin(440*t)|sin(550*t)|sin(660*t)|0|sin(770*t)|sin(880*t)'"
                                        ":c=5.1:s=48000:d=1"), X264, "-c:a ac3")),
]

def with_bit_errors(every, first=25, last=60):
    """One wrong bit in about so many bytes from first to last per cent of the file, the same on every machine."""
    def damage(data):
        damaged = bytearray(data)
        place, count = len(data) * first // 100, 0
        while place < len(data) * last // 100:
            damaged[place] ^= 1 << count * 7919 // 16 % 8
            count += 1
            place += every + count * 7919 % 199
        return bytes(damaged)
    return damage


DAMAGE = [
    uncoded("cut_moov.mp4", 0, "cut short before its index: must fail, and quickly",
            slice_of(MASTER, lambda data: data[:20000])),
    coded("cut_tail.avi", "0-60,63", 13, "AVI cut in the middle, without its index",
          slice_of("mpeg4_bf.avi", lambda data: data[: len(data) * 6 // 10])),
    coded("cut_head.ts", "24-99", 3, "TS cut at the start: 95 packets, 76 pictures can be decoded",
          slice_of("h264_opengop.ts", lambda data: data[188 * 60:])),
    coded("cut_head.mpg", "15-99", 7, "program stream cut at the start: 98 packets, 85 pictures can be decoded",
          slice_of("mpeg2_interlaced.mpg", lambda data: data[30000:])),
    coded("bit_errors.mp4", "0-24,?50,75-99", 1, "few bit errors, the same at every making",
          slice_of("h264_closed.mp4", with_bit_errors(3000))),
    coded("bit_errors.mpg", "0-14,?55,70-99", 7, "bit errors that lose a picture which others refer to",
          slice_of("mpeg2_interlaced.mpg", with_bit_errors(1501))),
    coded("bit_errors_groups.mp4", "0-9,?130,140-149", 2, "bit errors in most of 15 short groups",
          two_steps((video(6, 2), X264, "-g 10 -bf 2", CLOSED_GOP), "intact.mp4",
                    lambda job, part: job.output.write_bytes(with_bit_errors(1200, 9, 90)(part.read_bytes())))),
    # Where the errors fall differs from one making to the next, so only the first group is certain.
    coded("noise.mkv", "0-25,?74", 1, "random bit errors",
          convert("h264_closed.mp4", "-map 0:v -bsf:v noise=amount=3000")),
    coded("lost_packets.mkv", "0-4,6-19,?71", 1, "every tenth packet lost, the others keep their times",
          convert("h264_closed.mp4", "-map 0:v", ["-bsf:v", r"noise=drop='eq(mod(n\,10)\,7)'"])),
    uncoded("garbage.mp4", 0, "not a video", noise(50000)),
    uncoded("empty.mp4", 0, "a file of length 0", text("")),
]

CAPTION_SOURCE = (video(4.004, 2, rate="30000/1001"), "-c:v mpeg2video -q:v 6 -g 15 -bf 2 -f mpeg2video")
FILM_SOURCE = (video(4.004, 3, rate="24000/1001"), "-c:v mpeg2video -q:v 6 -g 12 -bf 2 -f mpeg2video")


def rewritten(source, rewrite, clock, *parts):
    """An elementary stream whose bytes are rewritten before it goes into its container."""

    def finish(job, part):
        part.write_bytes(rewrite(part.read_bytes()))
        job.ffmpeg(clock, "-i", part, *parts, job.output)

    return two_steps(source, "stream.m2v", finish)


def add_caption_track(job):
    track = job.part("captions.scc")
    track.write_text(streams.CAPTION_TRACK)
    job.ffmpeg("-i", job.clip("cc608.mp4"), "-f scc -i", track,
               "-map 0:v -map 1:s -c:v libx264 -preset veryfast -crf 28 -a53cc 0 -c:s copy", job.output)


CAPTIONS = [
    coded("cc608.mpg", "0-119", 2, "EIA-608 in MPEG-2: shown at picture 25, erased at 50, rolling up from 60",
          rewritten(CAPTION_SOURCE, streams.with_captions, NTSC, "-c copy -f vob")),
    coded("cc608.mp4", "0-119", 2, "the same captions as H.264 side data, with B-frames",
          rewritten(CAPTION_SOURCE, streams.with_captions, NTSC,
                    "-c:v libx264 -preset veryfast -crf 24 -bf 3 -g 30 -a53cc 1 -pix_fmt yuv420p")),
    coded("cc708.mpg", "0-119", 2, "EIA-708 in MPEG-2, no EIA-608: shown at picture 25, taken away at 50",
          rewritten(CAPTION_SOURCE, streams.with_digital_captions, NTSC, "-c copy -f vob")),
    coded("cc_track.mov", "0-119", 2, "captions as a track of their own, none in the pictures: shown at picture 20, erased at 75",
          Recipe(add_caption_track, ("cc608.mp4",))),
    coded("soft_telecine.mpg", "0-95", 3, "repeated fields 2:3: 96 coded pictures, 120 display times, 4 s",
          rewritten(FILM_SOURCE, streams.with_pull_down, FILM, "-c copy -f vob")),
]


def play_list(address):
    return text(f"#EXTM3U\n#EXT-X-TARGETDURATION:1\n#EXTINF:1,\n{address}\n#EXT-X-ENDLIST\n")


LOCAL_SECRET = play_list("file:///etc/passwd")

ADDRESSES = [
    coded("hls/vod.m3u8", "0-99", 6, "a play list with 4 segments",
          convert(MASTER, "-f hls -hls_time 1 -hls_playlist_type vod -hls_segment_filename seg%02d.ts")),
    uncoded("hls/evil_local.m3u8", 0, "a list that names a local file: to be refused", LOCAL_SECRET),
    uncoded("hls/evil_net.m3u8", 0, "a local list that names an address: to be refused",
            play_list("http://127.0.0.1:9/x.ts")),
    uncoded("hls/evil_nested.m3u8", 0, "a list of nested protocols: to be refused",
            play_list("concat:file:///etc/hostname|subfile,,start,0,end,100,,:/etc/passwd")),
    uncoded("hls/disguised.mp4", 0, "a list under a video's name: to be refused", LOCAL_SECRET),
    uncoded("evil_concat.ffconcat", 0, "a concat list of a local file: to be refused",
            text("ffconcat version 1.0\nfile '/etc/passwd'\n")),
    uncoded("not_a_playlist.txt", 0, "a text with an address: not a video", text("http://127.0.0.1:9/x.mp4\n")),
]

ODD_NAMES = [
    coded(name, "0-99", 1, f"a name that {trouble}", slice_of("h264_closed.mp4", lambda data: data))
    for name, trouble in (("clip10:30.mp4", "looks like an address"), ("percent%03d.mp4", "looks like a number series"),
                          ("Ümläut #1 ?.mp4", "an address would have to quote"), ("-dash.mp4", "looks like an option"))
]

CLIPS = [*RANDOM_ACCESS, *TIME_STAMPS, *CONTAINERS, *PICTURES, *LAYOUT, *DAMAGE, *CAPTIONS, *ADDRESSES, *ODD_NAMES]
