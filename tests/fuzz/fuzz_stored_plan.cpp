#include "AutoParamSetting.h"
#include "EditorForm.h"
#include "FuzzTarget.h"
#include "PlanSample.h"
#include "Script.h"

#include <QApplication>

namespace {

const QString PlanId = QStringLiteral("P1");

void keepSilent(QtMsgType type, const QMessageLogContext&, const QString& text)
{
    if (type != QtFatalMsg)
        return;
    fprintf(stderr, "%s\n", qPrintable(text));
    abort();
}

/// "key=value" lines; a line without the sign has no value.
QMap<QString, QVariant> recordOfLines(const QList<QByteArray>& lines)
{
    QMap<QString, QVariant> record;
    for (const QByteArray& line : lines) {
        const int sign = line.indexOf('=');
        const QByteArray key = line.left(sign);
        if (!key.isEmpty())
            record.insert(QString::fromUtf8(key), sign < 0 ? QString() : QString::fromUtf8(line.mid(sign + 1)));
    }
    return record;
}

// The widgets must be deleted before the answers.
void open(const QByteArray& way)
{
    QWidget host;
    AutoParamSetting editor(&host);
    if (way.contains("shown"))
        host.show();
    if (way.contains("edit"))
        editor.editPlan(PlanId);
    else
        editor.copyPlan(PlanId);
    QCoreApplication::processEvents();
    if (way.contains("send"))
        press(editor, "btn_ok");
    if (way.contains("reset"))
        editor.resetEnable();
    QCoreApplication::processEvents();
}

} // namespace

int LLVMFuzzerInitialize(int* argc, char*** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qInstallMessageHandler(keepSilent);
    static QApplication application(*argc, *argv);
    return 0;
}

/// The input is a stored plan as "key=value" lines. The line before them says what to do with it, with any of the words
/// edit (otherwise it is copied), review (the user needs a review), shown, send and reset.
int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    const FuzzSecond limit;
    QList<QByteArray> lines = QByteArray(reinterpret_cast<const char*>(data), static_cast<int>(size)).split('\n');
    const QByteArray way = lines.takeFirst();
    Script& script = Script::instance();
    script.reset();
    openSampleMarket();
    script.ruleProperty = way.contains("review") ? 1 : 0;
    storePlan(PlanId, recordOfLines(lines));
    open(way);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    FUZZ_REQUIRE(script.createdRecords.size() + script.modifiedRecords.size() <= 1);
    FUZZ_REQUIRE(way.contains("edit") ? script.createdRecords.isEmpty() : script.modifiedRecords.isEmpty());
    FUZZ_REQUIRE(way.contains("send") || script.boxes.isEmpty());
    script.reset();
    return 0;
}
