#pragma once

#include "desktop/Wallpaper.h"

#include <QObject>
#include <QString>
#include <QStringList>

#include <functional>

/// Where a desktop of this family keeps its background.
struct BackgroundKeys {
    const char* desktop; ///< as the session names it
    const char* schema;
    const char* picture;
    const char* darkPicture; ///< of its dark face, null where there is none
    bool isAddress; ///< the value is an address, not a path
};

/// The settings of the desktops that keep them in one common store, by the program "gsettings".
class GnomeWallpaper : public Wallpaper {
public:
    explicit GnomeWallpaper(const BackgroundKeys& keys)
        : keys_(keys)
    {
    }
    /// The keys of a desktop, null for one of another family.
    static const BackgroundKeys* KeysOf(const QString& desktop);

    bool CanSet() const override;
    void Set(const QString& path, Done done) override;

private:
    using Next = std::function<void(const QString& output)>;
    void Write(const QString& key, const QString& value, const Done& done, const Next& next);
    void Read(const QString& key, const Done& done, const Next& next);
    /// Runs the program; next gets its output, done its failure.
    void Run(const QStringList& arguments, const Done& done, const Next& next);
    void WriteAll(
        QStringList keys, const QString& value, const Done& done, const std::function<void()>& next);
    void MakeVisible(const Done& done, const std::function<void()>& next);
    void Verify(QStringList keys, const QString& value, const Done& done);

    const BackgroundKeys& keys_;
    QObject owner_;
};
