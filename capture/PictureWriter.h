#pragma once

#include "capture/AutoName.h"

#include <QImage>
#include <QObject>

#include <functional>
#include <memory>
#include <thread>

/// Writes pictures as bitmaps under automatic names, in their order, on a thread of its own. All members are
/// called on the owner's thread, which the signals come to.
class PictureWriter : public QObject {
    Q_OBJECT

public:
    PictureWriter();
    /// Drops what waits. A picture being written gets whole; a disk that hangs is left behind after a moment.
    ~PictureWriter() override;

    /// Hands a picture over. It gets the next free number above the one tried last. What has to be done with
    /// its file before it is told, finish does on the thread; when that throws ControlError the picture
    /// counts as failed and its file stands. Throws ControlError when there is no thread to be had.
    using Finish = std::function<void(const QString& path)>;
    void Write(const QImage& picture, const AutoName& names, const Finish& finish = {});
    /// What becomes of the pictures handed over after one that fails: written all the same, or dropped.
    enum class AfterFailure { GoOn, Stop };
    void SetAfterFailure(AfterFailure afterFailure);
    /// The next free number was for a picture that is not to be had: it is passed over.
    void Skip(const AutoName& names);
    /// Pictures handed over whose result has not been told.
    int Waiting() const { return waiting_; }
    /// Drops what waits and tells no more results of it.
    void Drop();
    /// The next picture gets the lowest free number.
    void Restart();

Q_SIGNALS:
    /// The picture stands on the disk.
    void Written(const QString& path);
    /// It does not.
    void Failed();

private:
    class Desk;
    void Start();
    void Tell(int turn, const QString& path);

    std::shared_ptr<Desk> desk_;
    std::thread thread_;
    int waiting_ = 0;
};
