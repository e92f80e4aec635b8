#include "PageChecker.h"

PageChecker::PageChecker(const Database& session)
    : m_thread(QStringLiteral("page check"), session)
{
    m_thread.run([this](Database& database, const Status& opened) {
        const Status checked = opened ? database.checkPages() : opened;
        // A report that is not delivered yet ends with the checker: the next session may have another file.
        if (!checked && !m_thread.isStopping())
            QMetaObject::invokeMethod(
                this, [this, checked] { Q_EMIT failed(checked); }, Qt::QueuedConnection);
    });
}
