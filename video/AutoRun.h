#pragma once

#include "app/Hourglass.h"
#include "capture/AutoName.h"
#include "capture/AutoTally.h"
#include "capture/PictureWriter.h"

#include <QObject>
#include <QStringList>

#include <optional>

class ApplicationState;
class Frame;
class Transport;
class ltmmPlay;

/// An automatic capture: walks through every video of the selection and writes pictures into the folder
/// "AutoFrame" without being asked. It lives on the event loop; deleting it leaves the run, and no file but
/// whole ones.
class AutoRun : public QObject {
    Q_OBJECT

public:
    /// What a run works on; all outlive it.
    struct Parts {
        Frame& frame;
        Transport& transport;
        ltmmPlay& player;
        PictureWriter& writer;
    };

    ~AutoRun() override;

    /// Takes the list from FileNames and starts its first video. Without a video there is nothing to do, and
    /// nothing is said.
    void Start();
    /// What plays has come to its end.
    virtual void VideoEnded() = 0;
    /// To be called before anybody is told of the player's error and answers it: the run goes on meanwhile.
    void PlayerFailed();
    const AutoTally& Tally() const { return tally_; }
    bool IsOver() const { return isOver_; }

Q_SIGNALS:
    void VideoLoaded(); ///< VideoPath names it
    void TitleChanged(); ///< VideoPath has changed
    void PictureTaken(); ///< the flashing of the label may begin
    void Over(); ///< the run has nothing more to do

protected:
    /// Pictures that wait to be written at most. A disk that cannot follow holds up the run.
    static constexpr int MostWaiting = 3;

    /// afterFailure: what becomes of the pictures behind one that cannot be written.
    AutoRun(const Parts& parts, PictureWriter::AfterFailure afterFailure);

    /// Reads what holds for the whole run.
    virtual void Prepare() = 0;
    virtual void StartVideo(const QString& path) = 0;
    /// What LoadVideo was asked for is in the player, or was refused by it; the window follows in either
    /// case.
    virtual void Opened(bool isLoaded) = 0;
    /// What is told once picture and text stand on the disk.
    virtual QString CountedText() const = 0;

    ApplicationState& State() const;
    /// Goes on with the next video when the events at hand are done.
    void NextVideo();
    bool IsLastVideo() const { return next_ == list_.size(); }
    /// Begins to load it; Opened tells the end.
    void LoadVideo(const QString& path);
    /// Takes the still of the frame that is shown and hands it to the writer, which burns the user's text
    /// into its file. Throws ControlError.
    void TakeStill();
    /// Counts and tells the picture that stands on the disk.
    void Count(const QString& path);
    void ShowVideoNumber();
    void Finish();

    Parts parts_;
    AutoTally tally_;
    std::optional<AutoName> names_; ///< of the pictures of the current video
    int interval_ = 0; ///< seconds, also where the pictures lie so many frames apart

private:
    void GoOn();
    void FinishLoading();
    /// Takes the eye-catching colour off what was told last: nothing is running any more.
    void Quieten() const;

    const PictureWriter::AfterFailure afterFailure_;
    QString told_; ///< of the picture counted last
    QStringList list_;
    qsizetype next_ = 0; ///< place of the next video in list_
    std::optional<Hourglass> opening_; ///< as long as a video is being loaded
    bool isOver_ = false;
};
