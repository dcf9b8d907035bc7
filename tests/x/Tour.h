#pragma once

#include "Program.h"

#include <QDir>
#include <QStringList>

#include <stdexcept>

/// A step of the tour did not end as it must.
class TourStopped : public std::runtime_error {
    using std::runtime_error::runtime_error;
};

/// A user at the real program on a real screen: opens, plays, steps, captures, saves; looks at what stands on
/// the screen and in the files.
class Tour {
public:
    /// Everything is written below folder, which is emptied first. samples holds the videos to show.
    Tour(const QString& folder, const QString& samples);

    void Run();
    /// Full paths of the pictures saved and of the screenshots taken.
    const QStringList& Written() const { return written_; }

private:
    QString PrepareFolders(const QString& samples);
    void ShowFrame();
    void OpenThreeFiles();
    void PlayAndPause();
    void StepFrames();
    void CaptureTwice();
    void SaveInEveryFormat();
    void SaveAs(const QString& extension);

    QWidget& Find(const QString& name);
    void Click(const QString& name);
    int ShownFrame();
    /// What of a window stands on the screen.
    QImage Screen(const QWidget& part);
    bool IsFading();
    void Shoot(const QString& name);

    QDir folder_;
    Program program_;
    Main& main_;
    QStringList written_;
    int frame_ = 0; ///< the frame the user stepped to
};
