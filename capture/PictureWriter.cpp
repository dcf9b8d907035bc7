#include "capture/PictureWriter.h"

#include "app/ControlError.h"
#include "capture/SavePicture.h"

#include <chrono>
#include <condition_variable>
#include <deque>
#include <mutex>
#include <optional>
#include <system_error>

namespace {

using namespace std::chrono_literals;

constexpr auto Patience = 2s; ///< for the picture being written, when the writer goes

struct Job {
    QImage picture; ///< null for one that is not to be had
    AutoName names;
    PictureWriter::Finish finish;
    int turn; ///< pictures that are dropped together
};

/// Answers whether the picture stands and is finished; number becomes the one tried last.
bool IsWritten(const Job& job, int& number)
{
    number = job.names.NextFree(number);
    if (job.picture.isNull())
        return false;
    try {
        while (!SaveNewPicture(job.picture, job.names.At(number)))
            number = job.names.NextFree(number);
        if (job.finish)
            job.finish(job.names.At(number));
        return true;
    } catch (const ControlError&) {
        return false;
    }
}

} // namespace

/// What both threads hold in their hands; it outlives the writer where the disk hangs.
class PictureWriter::Desk {
public:
    explicit Desk(PictureWriter& owner)
        : owner_(&owner)
    {
    }

    /// Whether the thread has ended within Patience.
    bool Close();
    void Work();
    void Put(const QImage& picture, const AutoName& names, const Finish& finish);
    void SetAfterFailure(AfterFailure afterFailure);
    void Drop();
    void Restart();
    int Turn() const { return turn_; }
    bool StopsAtFailure() const { return afterFailure_ == AfterFailure::Stop; }

private:
    std::optional<Job> Take();
    void Write(const Job& job);
    void Tell(const Job& job, const QString& path);

    std::mutex mutex_;
    std::condition_variable changed_;
    std::deque<Job> jobs_;
    PictureWriter* owner_; ///< null once it is gone
    int turn_ = 0;
    int number_ = 0; ///< tried last
    AfterFailure afterFailure_ = AfterFailure::Stop;
    bool hasFailed_ = false; ///< and takes nothing more of this turn
    bool hasEnded_ = false;
};

void PictureWriter::Desk::Work()
{
    while (const std::optional<Job> job = Take())
        Write(*job);
    const std::lock_guard lock(mutex_);
    hasEnded_ = true;
    changed_.notify_all();
}

std::optional<Job> PictureWriter::Desk::Take()
{
    std::unique_lock lock(mutex_);
    changed_.wait(lock, [this] { return !owner_ || !jobs_.empty(); });
    if (!owner_)
        return std::nullopt;
    Job job = std::move(jobs_.front());
    jobs_.pop_front();
    return job;
}

void PictureWriter::Desk::Write(const Job& job)
{
    std::unique_lock lock(mutex_);
    int number = number_;
    lock.unlock();
    const bool isWritten = IsWritten(job, number);
    lock.lock();
    if (job.turn == turn_)
        number_ = number;
    if (job.picture.isNull())
        return;
    if (!isWritten && job.turn == turn_ && afterFailure_ == AfterFailure::Stop) {
        hasFailed_ = true;
        jobs_.clear();
    }
    Tell(job, isWritten ? job.names.At(number) : QString());
}

void PictureWriter::Desk::Tell(const Job& job, const QString& path)
{
    if (owner_)
        QMetaObject::invokeMethod(
            owner_, [owner = owner_, turn = job.turn, path] { owner->Tell(turn, path); },
            Qt::QueuedConnection);
}

void PictureWriter::Desk::Put(const QImage& picture, const AutoName& names, const Finish& finish)
{
    const std::lock_guard lock(mutex_);
    if (!hasFailed_)
        jobs_.push_back({ picture, names, finish, turn_ });
    changed_.notify_all();
}

void PictureWriter::Desk::SetAfterFailure(AfterFailure afterFailure)
{
    const std::lock_guard lock(mutex_);
    afterFailure_ = afterFailure;
}

void PictureWriter::Desk::Drop()
{
    const std::lock_guard lock(mutex_);
    ++turn_;
    hasFailed_ = false;
    jobs_.clear();
}

void PictureWriter::Desk::Restart()
{
    const std::lock_guard lock(mutex_);
    number_ = 0;
}

bool PictureWriter::Desk::Close()
{
    std::unique_lock lock(mutex_);
    owner_ = nullptr;
    changed_.notify_all();
    return changed_.wait_for(lock, Patience, [this] { return hasEnded_; });
}

PictureWriter::PictureWriter()
    : desk_(std::make_shared<Desk>(*this))
{
}

PictureWriter::~PictureWriter()
{
    if (!thread_.joinable())
        return;
    if (desk_->Close())
        thread_.join();
    else
        thread_.detach();
}

void PictureWriter::Write(const QImage& picture, const AutoName& names, const Finish& finish)
{
    Start();
    ++waiting_;
    desk_->Put(picture, names, finish);
}

void PictureWriter::SetAfterFailure(AfterFailure afterFailure)
{
    desk_->SetAfterFailure(afterFailure);
}

void PictureWriter::Skip(const AutoName& names)
{
    desk_->Put({}, names, {});
}

void PictureWriter::Start()
{
    if (thread_.joinable())
        return;
    try {
        thread_ = std::thread([desk = desk_] { desk->Work(); });
    } catch (const std::system_error&) {
        throw ControlError(QStringLiteral("The program cannot start another thread."));
    }
}

void PictureWriter::Drop()
{
    desk_->Drop();
    waiting_ = 0;
}

void PictureWriter::Restart()
{
    Drop();
    desk_->Restart();
}

void PictureWriter::Tell(int turn, const QString& path)
{
    if (turn != desk_->Turn())
        return;
    --waiting_;
    if (!path.isEmpty()) {
        Q_EMIT Written(path);
        return;
    }
    if (desk_->StopsAtFailure())
        Drop();
    Q_EMIT Failed();
}
