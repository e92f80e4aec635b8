#include "CloseCodec.h"

namespace {

quint64 zigZag(qint64 value)
{
    return (static_cast<quint64>(value) << 1) ^ static_cast<quint64>(value >> 63);
}

qint64 unZigZag(quint64 value)
{
    return static_cast<qint64>(value >> 1) ^ -static_cast<qint64>(value & 1);
}

void append(QByteArray& blob, quint64 value)
{
    for (; value >= 0x80; value >>= 7)
        blob.append(static_cast<char>((value & 0x7f) | 0x80));
    blob.append(static_cast<char>(value));
}

std::optional<quint64> takeNumber(const QByteArray& blob, int& at)
{
    quint64 value = 0;
    for (int shift = 0; shift < 63 && at < blob.size(); shift += 7) {
        const quint64 byte = static_cast<quint8>(blob.at(at++));
        value |= (byte & 0x7f) << shift;
        if (byte < 0x80)
            return value;
    }
    return std::nullopt;
}

} // namespace

QByteArray CloseCodec::encode(const QVector<qint64>& ticks)
{
    QByteArray blob;
    blob.reserve(ticks.size() * 2);
    qint64 previous = 0;
    for (const qint64 tick : ticks) {
        append(blob, zigZag(tick - previous));
        previous = tick;
    }
    return blob;
}

std::optional<QVector<qint64>> CloseCodec::decode(const QByteArray& blob)
{
    QVector<qint64> ticks;
    quint64 tick = 0; // unsigned, so that a damaged blob cannot overflow
    for (int at = 0; at < blob.size();) {
        const auto delta = takeNumber(blob, at);
        if (!delta)
            return std::nullopt;
        tick += static_cast<quint64>(unZigZag(*delta));
        ticks << static_cast<qint64>(tick);
    }
    return ticks;
}
