#include "ClientWidgets.h"

#include "ClientWidget.h"
#include "OrloAccountComboBox.h"
#include "OrloComboBox.h"
#include "OrloDateEdit.h"
#include "OrloDecimalLineEdit.h"
#include "OrloDoubleSpinBox.h"
#include "OrloElidedLabel.h"
#include "OrloFormulaNormal.h"
#include "OrloHintLabel.h"
#include "OrloPushButton.h"
#include "OrloSubTitleWidget.h"
#include "VorSearchBox.h"

namespace {

template <class Widget> QWidget* make(QWidget* parent)
{
    return new Widget(parent);
}

/// The title is not a property; the program sets it. Without a title the widget would be an unlabelled bar.
template <> QWidget* make<OrloSubTitleWidget>(QWidget* parent)
{
    auto* const heading = new OrloSubTitleWidget(parent);
    heading->SetTitle(ClientWidgets::tr("小节标题"));
    return heading;
}

template <> QWidget* make<OrloAccountComboBox>(QWidget* parent)
{
    return new OrloAccountComboBox(parent, OrloAccountComboBox::DisplayMode::NameAndFundAccount);
}

} // namespace

template <class Widget> void ClientWidgets::add(const QString& purpose, Holds holds)
{
    const QString className = QString::fromLatin1(Widget::staticMetaObject.className());
    m_widgets.append(new ClientWidget(className, purpose, holds == Holds::Widgets, make<Widget>, this));
}

ClientWidgets::ClientWidgets(QObject* parent)
    : QObject(parent)
{
    add<OrloHintLabel>(tr("字段标题或单位"));
    add<OrloElidedLabel>(tr("放不下时省略的文字"));
    add<OrloComboBox>(tr("下拉框，可带搜索"));
    add<OrloAccountComboBox>(tr("账户下拉框"));
    add<OrloDateEdit>(tr("日期或日期区间"), Holds::Widgets);
    add<OrloDoubleSpinBox>(tr("可以为空的数字，带步进按钮"));
    add<OrloDecimalLineEdit>(tr("可以为空的数字"));
    add<OrloFormulaNormal>(tr("价格公式"));
    add<OrloPushButton>(tr("按钮，样式为normal、highlight或text"));
    add<OrloSubTitleWidget>(tr("小节标题，文字由程序设置"), Holds::Widgets);
    add<VorSearchBox>(tr("按代码或名称查找证券"));
}
