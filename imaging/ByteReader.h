#pragma once

#include "imaging/PictureError.h"
#include <QByteArrayView>
#include <QtEndian>

namespace imaging {

/// Numbers out of a file that may be damaged: reading behind its end throws PictureError.
class ByteReader {
public:
    enum class Order { Little, Big };

    ByteReader(QByteArrayView bytes, Order order)
        : bytes_(bytes)
        , order_(order)
    {
    }

    qsizetype Size() const { return bytes_.size(); }
    quint8 U8(qint64 at) const { return quint8(*Bytes(at, 1).data()); }
    quint16 U16(qint64 at) const { return Number<quint16>(at); }
    quint32 U32(qint64 at) const { return Number<quint32>(at); }
    QByteArrayView Bytes(qint64 at, qint64 count) const
    {
        if (at < 0 || count < 0 || at > bytes_.size() || count > bytes_.size() - at)
            throw PictureError(QStringLiteral("The picture is damaged or incomplete."));
        return bytes_.sliced(at, count);
    }

private:
    template <typename T> T Number(qint64 at) const
    {
        const char* bytes = Bytes(at, sizeof(T)).data();
        return order_ == Order::Little ? qFromLittleEndian<T>(bytes) : qFromBigEndian<T>(bytes);
    }

    QByteArrayView bytes_;
    Order order_;
};

} // namespace imaging
