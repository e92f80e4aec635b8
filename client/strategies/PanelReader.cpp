#include "PanelReader.h"

#include "ControlReader.h"
#include "ElementReader.h"

namespace {

StrategyPanel readPanel(const StrategyElement& element, StrategyRemarks& remarks)
{
    ElementReader reader(element, remarks);
    StrategyPanel panel;
    panel.title = reader.text("title").simplified();
    reader.expected("orientation");
    const QStringList directions{ QStringLiteral("VERTICAL"), QStringLiteral("HORIZONTAL") };
    panel.direction = static_cast<LayoutDirection>(reader.choice("orientation", directions, 0));
    panel.isCollapsible = reader.flag("collapsible", false);
    panel.isCollapsed = reader.flag("collapsed", false);
    panel.hasBorder = reader.choice("border", { QStringLiteral("None"), QStringLiteral("Line") }, 0) == 1;
    // The skin decides about colours.
    reader.text("color");
    reader.finish();
    ElementContents::refuseText(element, remarks);
    return panel;
}

class LayoutReader {
public:
    LayoutReader(StrategyDefinition& strategy, StrategyRemarks& remarks)
        : m_strategy(strategy)
        , m_remarks(remarks)
    {
    }

    /// Returns the panel's index. The nesting is limited by that of elements.
    int readPanelAndContents(const StrategyElement& element)
    {
        const int index = m_strategy.panels.size();
        m_strategy.panels.append(readPanel(element, m_remarks));
        bool hasPanels = false;
        bool hasControls = false;
        for (const StrategyElement& child : element.children) {
            if (child.name == QLatin1String("StrategyPanel")) {
                hasPanels = true;
                const int inner = readPanelAndContents(child);
                m_strategy.panels[index].items.append({ true, inner });
            } else if (child.name == QLatin1String("Control")) {
                hasControls = true;
                m_strategy.panels[index].items.append({ false, static_cast<int>(m_strategy.controls.size()) });
                m_strategy.controls.append(ControlReader::read(child, m_remarks));
            } else {
                ElementContents::refuseChild(child, m_remarks);
            }
        }
        if (hasPanels && hasControls)
            m_remarks.warn(element.line, Error::ControlsBesidePanels);
        ElementContents::checkPlaces(
            element, { QStringLiteral("StrategyPanel"), QStringLiteral("Control") }, m_remarks);
        return index;
    }

private:
    StrategyDefinition& m_strategy;
    StrategyRemarks& m_remarks;
};

} // namespace

void PanelReader::read(const StrategyElement& layout, StrategyDefinition& strategy, StrategyRemarks& remarks)
{
    ElementReader(layout, remarks).finish();
    ElementContents::refuseText(layout, remarks);
    ElementContents::checkPlaces(layout, { QStringLiteral("StrategyPanel") }, remarks);
    // A panel around the others, of which the standard allows only one.
    strategy.panels.append(StrategyPanel());
    for (const StrategyElement& child : layout.children) {
        if (child.name != QLatin1String("StrategyPanel")) {
            ElementContents::refuseChild(child, remarks);
            continue;
        }
        if (!strategy.panels.constFirst().items.isEmpty())
            remarks.warn(child.line, Error::SecondPanel);
        const int index = LayoutReader(strategy, remarks).readPanelAndContents(child);
        strategy.panels.first().items.append({ true, index });
    }
    if (strategy.panels.constFirst().items.isEmpty())
        remarks.refuse(layout.line, Error::NoPanel);
}
