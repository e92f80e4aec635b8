#include "PageChecker.h"

PageChecker::PageChecker(const Database& session)
    : m_thread(QStringLiteral("page check"), session)
{
    qRegisterMetaType<Status>("Status");
    m_thread.run([this](Database& database, const Status& opened) {
        const Status checked = opened ? database.checkPages() : opened;
        if (!checked && !m_thread.isStopping())
            Q_EMIT failed(checked);
    });
}
