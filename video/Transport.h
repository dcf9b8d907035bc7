#pragma once

#include "video/RateClicks.h"
#include "video/TransportTable.h"

#include <QObject>

#include <functional>

class ApplicationState;
class Frame;
class TransportPane;
class StripButton;
class ltmmPlay;

/// Where the player stands and how long the video is: "00:00:00  -  00:00:00".
QString PositionText(const ltmmPlay& player);

/// The transport bar at work: what each of its controls does to the player of the current video, at once.
class Transport : public QObject {
    Q_OBJECT

public:
    /// openListed opens the video that VideoPath names, as chosen from the list.
    Transport(TransportPane& pane, Frame& frame, std::function<void()> openListed);

    /// Sets the bar to usable or not, as far as the player can seek.
    void EnableVideoControls(bool enabled, const ltmmPlay& player);
    /// Play, pause and the frame steps.
    void EnablePlaying(bool enabled);
    /// What a timed capture leaves to the user.
    void EnablePauseAndSound();
    /// What every open begins with: no marks, both mark buttons released and waiting for the slider.
    void ForgetMarks();
    /// The slider and the previous/next buttons for a video just loaded.
    void StartVideo();
    /// Previous and next take part only where there are at least two videos.
    void EnableList();
    void ReleasePause();
    /// The sound button stands down: sound on.
    void SetSoundOn();
    /// Releases auto rewind and loop.
    void ReleaseRepeats();
    /// The player repeats its video again or not, as the button says.
    void ObeyLoop();
    void ShowPane(bool visible);

    /// The slider follows the player.
    void FollowProgress(int position);
    /// The marks on the slider, in its units.
    void ShowSelection(int start, int end);

    /// What the buttons do.
    void Play();
    void PauseOrRun();
    /// -1 back, +1 forward. Failures are passed over.
    void StepFrame(int direction);
    void SeekClicked(SeekButton button);
    void ChangeRate(RateButton button);
    /// The slider was moved to a value.
    void Scroll(int value);
    /// -1 previous, +1 next; wraps over the number of selected files, videos or not.
    void WalkList(int direction);

private:
    void Bind();
    void Mark(SeekButton button);
    void ClearMarks();
    void Toggle(SeekButton button);
    ltmmPlay& Player();
    ApplicationState& State();

    TransportPane& pane_;
    Frame& frame_;
    std::function<void()> openListed_;
    RateClicks rateClicks_;
};
