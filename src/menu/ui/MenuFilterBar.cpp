#include "menu/ui/MenuFilterBar.h"

#include <QCheckBox>
#include <QHBoxLayout>
#include <utility>

#include "menu/MenuManager.h"
#include "windows/ui/ElidedLabel.h"
#include "windows/ui/PanelLabel.h"

namespace korvex {

MenuFilterBar::MenuFilterBar(MenuManager& logic, std::function<void()> before, QWidget* parent)
    : QWidget(parent), m_before(std::move(before)), m_row(new QHBoxLayout(this)) {
    setObjectName(QStringLiteral("filters"));
    m_row->setContentsMargins(4, 2, 4, 2);
    MenuSheet& sheet = logic.sheet();
    addFilter(sheet.onlyDiffering, "onlyDiffering", "Only &differing",
              "Only items for which the settings columns differ", [&sheet](bool on) { sheet.onlyDiffering = on; });
    addFilter(sheet.onlyNamed, "onlyNamed", "Only &named", "Only items that have a name",
              [&sheet](bool on) { sheet.onlyNamed = on; });
    addFilter(sheet.onlyUnlikeRadio, "onlyUnlikeRadio", "Only differing from the &radio",
              "Only items whose setting in the selected column is not the radio's",
              [&logic](bool on) { logic.showOnlyUnlikeRadio(on); });
    auto* counts = new ElidedLabel;
    counts->setObjectName(QStringLiteral("counts"));
    counts->setAccessibleDescription(QStringLiteral("How many settings differ"));
    m_connections += sheet.counts.bind([counts](const std::string& text) { showNamed(*counts, text); });
    m_row->addWidget(counts, 1);
}

void MenuFilterBar::addFilter(Property<bool>& filter, const char* name, const char* caption, const char* meaning,
                              std::function<void(bool)> apply) {
    auto* box = new QCheckBox(QLatin1String(caption));
    box->setObjectName(QLatin1String(name));
    box->setToolTip(QLatin1String(meaning));
    box->setAccessibleDescription(QLatin1String(meaning));
    // Switched by hand or by an assistive program, which toggles without a click. Queued: what asks must not keep that
    // program's call waiting until it is answered.
    connect(
        box, &QCheckBox::toggled, this,
        [this, &filter, apply = std::move(apply)](bool on) {
            if (on == filter) return;  // it only shows what is
            m_before();
            apply(on);
        },
        Qt::QueuedConnection);
    m_connections += filter.bind([box](bool on) { box->setChecked(on); });
    m_row->addWidget(box);
}

}  // namespace korvex
