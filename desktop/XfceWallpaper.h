#pragma once

#include "desktop/Wallpaper.h"

#include <QList>
#include <QObject>
#include <QStringList>

#include <functional>

/// XFCE's settings, by the program "xfconf-query": a picture for each screen and workspace.
class XfceWallpaper : public Wallpaper {
public:
    bool CanSet() const override;
    void Set(const QString& path, Done done) override;

private:
    /// Runs the program with each of these arguments in turn, then next.
    void RunAll(QList<QStringList> commands, const Done& done, const std::function<void()>& next);
    /// Whether each of these properties holds the picture.
    void Verify(QStringList properties, const QString& path, const Done& done);

    QObject owner_;
};
