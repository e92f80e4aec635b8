#pragma once

#include "ErrorText.h"

#include <QTest>

/// A status as a column of a table of tests.
Q_DECLARE_METATYPE(Status)

namespace QTest {
/// The text that QCOMPARE prints.
template <> inline char* toString(const Status& status)
{
    return qstrdup(qPrintable(
        QStringLiteral("%1 (code %2)").arg(errorText(status), QString::number(static_cast<int>(status.error())))));
}
} // namespace QTest
