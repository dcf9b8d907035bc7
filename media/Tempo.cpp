#include "media/Tempo.h"

#include "media/Libav.h"
#include <algorithm>
#include <cmath>
#include <cstring>

namespace media {

namespace {

constexpr double Slowest = 0.5;
constexpr double Fastest = 2;
constexpr double Unchanged = 1e-9;
/// Seconds at the entry of a stage: it lays the pieces of sound over one another that much too early, at
/// every tempo (beeps measured from 0.1 to 5). Four stages at a tenth of the rate would be a quarter of a
/// second.
constexpr double StageLead = 0.012;

} // namespace

std::vector<double> TempoStages(double rate)
{
    std::vector<double> stages;
    while (rate < Slowest - Unchanged) {
        stages.push_back(Slowest);
        rate /= Slowest;
    }
    while (rate > Fastest + Unchanged) {
        stages.push_back(Fastest);
        rate /= Fastest;
    }
    if (std::abs(rate - 1) > Unchanged)
        stages.push_back(std::clamp(rate, Slowest, Fastest));
    return stages;
}

/// A graph of the library from a source over its stages to a sink.
struct Tempo::Chain {
    explicit Chain(const std::vector<double>& stages)
        : graph(avfilter_graph_alloc())
    {
        graph->nb_threads = 1;
        const std::string format = "time_base=1/48000:sample_rate=48000:sample_fmt=flt:channel_layout=stereo";
        source = Add("abuffer", format);
        AVFilterContext* last = source;
        for (const double stage : stages)
            last = Append(last, Add("atempo", "tempo=" + std::to_string(stage)));
        // The stages may choose their own format; the sink asks for ours.
        last = Append(last, Add("aformat", "sample_fmts=flt:sample_rates=48000:channel_layouts=stereo"));
        sink = Append(last, Add("abuffersink", {}));
        if (avfilter_graph_config(graph.get(), nullptr) < 0)
            throw MediaError(Failure::NoResources, "no tempo");
    }
    AVFilterContext* Add(const char* filter, const std::string& options)
    {
        AVFilterContext* context = nullptr;
        if (avfilter_graph_create_filter(&context, avfilter_get_by_name(filter), nullptr,
                options.empty() ? nullptr : options.c_str(), nullptr, graph.get())
            < 0)
            throw MediaError(Failure::NoResources, "no filter for the tempo");
        return context;
    }
    static AVFilterContext* Append(AVFilterContext* before, AVFilterContext* behind)
    {
        if (avfilter_link(before, 0, behind, 0) < 0)
            throw MediaError(Failure::NoResources, "no link for the tempo");
        return behind;
    }
    Samples Ready() const
    {
        Samples samples;
        const FramePtr frame(av_frame_alloc());
        while (av_buffersink_get_frame(sink, frame.get()) >= 0) {
            const auto* data = reinterpret_cast<const float*>(frame->data[0]);
            samples.insert(samples.end(), data, data + std::ptrdiff_t(frame->nb_samples) * SoundChannels);
            av_frame_unref(frame.get());
        }
        return samples;
    }

    GraphPtr graph;
    AVFilterContext* source = nullptr;
    AVFilterContext* sink = nullptr;
    int64_t taken = 0; ///< frames
};

Tempo::Tempo(double rate)
{
    if (const std::vector<double> stages = TempoStages(rate); !stages.empty())
        chain_ = std::make_unique<Chain>(stages);
    double passed = 1;
    for (const double stage : TempoStages(rate)) {
        lead_ += StageLead * passed;
        passed *= stage;
    }
}

Tempo::~Tempo() = default;

Samples Tempo::Stretch(Samples samples)
{
    if (!chain_ || samples.empty())
        return samples;
    const FramePtr frame(av_frame_alloc());
    frame->format = AV_SAMPLE_FMT_FLT;
    frame->sample_rate = SoundRate;
    frame->ch_layout = AV_CHANNEL_LAYOUT_STEREO;
    frame->nb_samples = int(FramesIn(samples));
    frame->pts = chain_->taken;
    chain_->taken += frame->nb_samples;
    if (av_frame_get_buffer(frame.get(), 0) < 0)
        throw MediaError(Failure::TooLarge, "no memory");
    std::memcpy(frame->data[0], samples.data(), samples.size() * sizeof(float));
    if (av_buffersrc_add_frame(chain_->source, frame.get()) < 0)
        throw MediaError(Failure::TooLarge, "no memory");
    return chain_->Ready();
}

Samples Tempo::Finish()
{
    if (!chain_)
        return {};
    av_buffersrc_close(chain_->source, chain_->taken, 0);
    return chain_->Ready();
}

} // namespace media
