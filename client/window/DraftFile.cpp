#include "DraftFile.h"

#include "ClientSession.h"
#include "PrivateFiles.h"

#include <QCryptographicHash>
#include <QFile>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QLockFile>
#include <QRunnable>
#include <QSettings>

#include <algorithm>
#include <cstdio>

namespace {

/// More clients of one user at the same time keep no drafts.
constexpr int MostClients = 100;

QString fileOf(int client)
{
    ClientSession& session = ClientSession::instance();
    const QString owner = session.user().id + QLatin1Char('\n') + session.database().location();
    const QByteArray name = QCryptographicHash::hash(owner.toUtf8(), QCryptographicHash::Sha256).toHex().left(16);
    const QString settings = QSettings(QStringLiteral("plandesk"), QStringLiteral("plandesk")).fileName();
    return QStringLiteral("%1/drafts-%2-%3.json")
        .arg(QFileInfo(settings).absolutePath(), QString::fromLatin1(name), QString::number(client));
}

QVector<FormDraft> readDrafts(const QString& name)
{
    QVector<FormDraft> drafts;
    QFile file(name);
    if (!file.open(QIODevice::ReadOnly))
        return drafts;
    const QJsonArray array = QJsonDocument::fromJson(file.readAll()).array();
    for (const QJsonValue draft : array)
        drafts << FormDraft::fromJson(draft.toObject());
    return drafts;
}

/// A client that is killed meanwhile leaves the old contents.
void replace(const QString& name, const QByteArray& contents)
{
    if (contents.isEmpty()) {
        QFile::remove(name);
        return;
    }
    const QString part = name + QStringLiteral(".part");
    QFile::remove(part);
    QFile file(part);
    if (!PrivateFiles::makeFile(part) || !file.open(QIODevice::WriteOnly) || file.write(contents) != contents.size())
        return;
    file.close();
    if (std::rename(QFile::encodeName(part).constData(), QFile::encodeName(name).constData()) == 0)
        PrivateFiles::flush(name);
}

bool removeDraft(QVector<FormDraft>& drafts, const QString& id)
{
    const auto has = [&id](const FormDraft& draft) { return draft.id == id; };
    const auto rest = std::remove_if(drafts.begin(), drafts.end(), has);
    const bool isRemoved = rest != drafts.end();
    drafts.erase(rest, drafts.end());
    return isRemoved;
}

} // namespace

DraftFile::DraftFile()
{
    m_writer.setMaxThreadCount(1);
    PrivateFiles::makeFolder(QFileInfo(fileOf(1)).absolutePath());
    takeOver();
}

DraftFile::~DraftFile()
{
    m_writer.waitForDone();
}

void DraftFile::keep(const FormDraft& draft)
{
    removeDraft(m_left, draft.id);
    removeDraft(m_open, draft.id);
    m_open << draft;
    write();
}

void DraftFile::drop(const QString& id)
{
    if (removeDraft(m_left, id) || removeDraft(m_open, id))
        write();
}

// A lock whose owner was killed can be taken.
void DraftFile::takeOver()
{
    for (int client = 1; client <= MostClients; ++client) {
        const QString file = fileOf(client);
        if (m_lock && !QFile::exists(file))
            return;
        auto lock = std::make_unique<QLockFile>(file + QStringLiteral(".lock"));
        lock->setStaleLockTime(0);
        if (!lock->tryLock())
            continue;
        m_left += readDrafts(file);
        if (m_lock) {
            write();
            m_writer.waitForDone();
            QFile::remove(file);
        } else {
            m_file = file;
            m_lock = std::move(lock);
        }
    }
}

// Only the last contents count.
void DraftFile::write()
{
    if (m_file.isEmpty())
        return;
    QJsonArray array;
    for (const FormDraft& draft : m_left + m_open)
        array << draft.toJson();
    const QByteArray contents = array.isEmpty() ? QByteArray() : QJsonDocument(array).toJson();
    m_writer.clear();
    m_writer.start(QRunnable::create([file = m_file, contents] { replace(file, contents); }));
}
