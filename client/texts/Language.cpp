#include "Language.h"

#include <QCoreApplication>
#include <QDir>
#include <QTranslator>

namespace {

const QString Chinese = QStringLiteral("zh");

QString& codeInUse()
{
    static QString code = Chinese;
    return code;
}

/// The folder of the translations relative to the program, both built and installed.
QString translationsFolder()
{
    return QDir(QCoreApplication::applicationDirPath())
        .filePath(QStringLiteral("../share/autoparamsetting/translations"));
}

/// Installs a translation for the application's lifetime.
bool install(const QString& file)
{
    auto* const translator = new QTranslator(qApp);
    if (translator->load(file, translationsFolder()) && QCoreApplication::installTranslator(translator))
        return true;
    delete translator;
    return false;
}

} // namespace

QStringList languageCodes()
{
    return { Chinese, QStringLiteral("en") };
}

Status useLanguage(const QString& code)
{
    if (code == Chinese)
        return {}; // the language of the sources
    const QString file = QStringLiteral("autoparamsetting_%1.qm").arg(code);
    if (!install(file))
        return { Error::NoTranslation, { QDir::cleanPath(QDir(translationsFolder()).filePath(file)) } };
    // The client's own widgets are translated if there is a translation for them.
    install(QStringLiteral("plandesk_%1.qm").arg(code));
    codeInUse() = code;
    return {};
}

QString languageInUse()
{
    return codeInUse();
}

QString editorText(const char* source)
{
    return QCoreApplication::translate("AutoParamSetting", source);
}
