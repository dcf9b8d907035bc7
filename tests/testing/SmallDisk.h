#pragma once

#include "desktop/FileName.h"

#include <QFile>
#include <QTemporaryDir>

#include <sched.h>
#include <sys/mount.h>

/// A file system of a few kilobytes that only this test program sees; it goes with the test. Not every
/// machine lets a test mount one: look at IsThere first.
class SmallDisk {
public:
    explicit SmallDisk(int kilobytes)
    {
        static const bool isPrivate =
            ::unshare(CLONE_NEWNS) == 0 && ::mount(nullptr, "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0;
        const QByteArray size = "size=" + QByteArray::number(kilobytes) + "k";
        isThere_ = isPrivate && ::mount("none", Mount().constData(), "tmpfs", 0, size.constData()) == 0;
    }
    ~SmallDisk()
    {
        if (isThere_)
            ::umount2(Mount().constData(), MNT_DETACH);
    }
    SmallDisk(const SmallDisk&) = delete;
    SmallDisk& operator=(const SmallDisk&) = delete;

    bool IsThere() const { return isThere_; }
    QString Path() const { return folder_.path(); }

    /// Leaves no free block.
    void Fill()
    {
        QFile filler(folder_.filePath(QStringLiteral("filler")));
        if (!filler.open(QIODevice::Append | QIODevice::Unbuffered))
            return;
        const QByteArray block(1024, 'x');
        while (filler.write(block) == block.size()) { }
    }
    void MakeReadOnly() { ::mount(nullptr, Mount().constData(), nullptr, MS_REMOUNT | MS_RDONLY, nullptr); }

private:
    QByteArray Mount() const { return FileName::ToBytes(folder_.path()); }

    QTemporaryDir folder_;
    bool isThere_ = false;
};
