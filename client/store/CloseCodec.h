#pragma once

#include <QByteArray>
#include <QVector>

#include <optional>

/// Closing prices in whole ticks as a compact blob: the differences from one to the next, zig-zag coded, seven bits
/// to the byte.
namespace CloseCodec {

QByteArray encode(const QVector<qint64>& ticks);
/// Absent when the blob ends within a number or holds one that is too large.
std::optional<QVector<qint64>> decode(const QByteArray& blob);

} // namespace CloseCodec
