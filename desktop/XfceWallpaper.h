#pragma once

#include "desktop/Wallpaper.h"

#include <QObject>
#include <QStringList>

/// XFCE's settings, by the program "xfconf-query": a picture for each screen and workspace.
class XfceWallpaper : public Wallpaper {
public:
    bool CanSet() const override;
    void Set(const QString& path, Done done) override;

private:
    /// Runs the program with each of these arguments in turn.
    void RunAll(QList<QStringList> commands, const Done& done);

    QObject owner_;
};
