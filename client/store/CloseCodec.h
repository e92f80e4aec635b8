#pragma once

#include <QByteArray>
#include <QVector>

#include <optional>

/// Closing prices in whole ticks as a compact blob: the differences between neighbours, zig-zag coded, seven bits per
/// byte.
namespace CloseCodec {

QByteArray encode(const QVector<qint64>& ticks);
/// Absent if the blob ends within a number or contains one that is too large.
std::optional<QVector<qint64>> decode(const QByteArray& blob);

} // namespace CloseCodec
