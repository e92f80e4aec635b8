#include "SampleNames.h"

#include <QStringList>

namespace {

// 64 each, so that an odd multiplier visits every pair before one repeats.
const QString FirstSyllables = QStringLiteral("岚砚霁澜珩翊湫棠筠黛霏珞瑄淞璟岫"
                                              "樾沅琮昀芷墨羽溯嵩皓衡朔漪锦毓煦"
                                              "崧澍骁珺栩晟琅渝苡蔚晗泓稷岱曜芃"
                                              "钧淳榆笙邈汀阡骐颐梓湛祺桐澈钰野");
const QString SecondSyllables = QStringLiteral("川陌野原峤溪汀洲岑屿壑渡津浦陵岩"
                                               "谷潭涧泽堰畔峪岬湾坞矶澳垣墅阁轩"
                                               "廊桥亭苑圃庭砂砾玑璧珀琥瓯瓴舟帆"
                                               "桅舷棹楫帷幄韵律歌谣笺帛缕绮纹彩");

const QStringList Trades{ QStringLiteral("科技"), QStringLiteral("电子"), QStringLiteral("材料"),
    QStringLiteral("机械"), QStringLiteral("医药"), QStringLiteral("食品"), QStringLiteral("化工"),
    QStringLiteral("能源"), QStringLiteral("纺织"), QStringLiteral("物流"), QStringLiteral("软件"),
    QStringLiteral("仪器"), QStringLiteral("环保"), QStringLiteral("传媒"), QStringLiteral("包装"),
    QStringLiteral("农业"), QStringLiteral("建材"), QStringLiteral("重工"), QStringLiteral("光学"),
    QStringLiteral("航运"), QStringLiteral("生物"), QStringLiteral("家居"), QStringLiteral("智造"),
    QStringLiteral("股份") };
const QStringList Themes{ QStringLiteral("红利"), QStringLiteral("低波"), QStringLiteral("成长"),
    QStringLiteral("质量"), QStringLiteral("价值"), QStringLiteral("芯片"), QStringLiteral("医疗"),
    QStringLiteral("消费"), QStringLiteral("新能源"), QStringLiteral("军工"), QStringLiteral("银行"),
    QStringLiteral("地产"), QStringLiteral("农业"), QStringLiteral("央企"), QStringLiteral("双创"),
    QStringLiteral("中盘"), QStringLiteral("小盘"), QStringLiteral("大盘"), QStringLiteral("软件"),
    QStringLiteral("材料"), QStringLiteral("传媒"), QStringLiteral("环保"), QStringLiteral("物流") };
const QStringList Estates{ QStringLiteral("产业园"), QStringLiteral("仓储"), QStringLiteral("高速"),
    QStringLiteral("保租房"), QStringLiteral("能源"), QStringLiteral("商业") };

constexpr int PairCount = 64 * 64;

int pairOf(int index)
{
    return (index % PairCount * 2653 + 911) % PairCount;
}

QString pairText(int pair)
{
    return QString(FirstSyllables.at(pair / 64)) + SecondSyllables.at(pair % 64);
}

QString stem(int index)
{
    return pairText(pairOf(index));
}

// Once every pair is used, the endings shift by one, so that pair and ending together stay unique.
QString withEnding(int index, const QStringList& endings)
{
    const int pair = pairOf(index);
    return pairText(pair) + endings.at((pair * 7 + index / PairCount) % endings.size());
}

QString serial(SampleRandom& random)
{
    return QStringLiteral("%1").arg(random.between(1, 18), 2, 10, QLatin1Char('0'));
}

QString year(SampleRandom& random)
{
    return QString::number(random.between(19, 25));
}

} // namespace

QString SampleNames::name(SampleKind kind, int index, SampleRandom& random)
{
    switch (kind) {
    case SampleKind::Share:
    case SampleKind::HongKong:
        return withEnding(index, Trades);
    case SampleKind::Fund:
        return withEnding(index, Themes) + QStringLiteral("ETF");
    case SampleKind::Trust:
        return withEnding(index, Estates) + QStringLiteral("REIT");
    case SampleKind::Convertible:
        return stem(index) + QStringLiteral("转债");
    case SampleKind::AssetBacked:
        return stem(index) + year(random) + QStringLiteral("优A") + serial(random);
    case SampleKind::DirectedConvertible:
        return stem(index) + QStringLiteral("定转");
    case SampleKind::Bond:
        break;
    }
    return year(random) + stem(index) + serial(random);
}

QString SampleNames::specialTreatmentName(const QString& flag, int index)
{
    return flag + stem(index);
}
