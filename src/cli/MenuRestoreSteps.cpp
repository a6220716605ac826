#include "cli/MenuRestoreSteps.h"

#include <algorithm>
#include <set>

#include "menu/MenuFile.h"

namespace korvex::cli {

namespace {

std::vector<std::string> commandsOf(const DataItems& items) {
    std::vector<std::string> commands;
    for (const auto& item : items) commands.push_back(item.command);
    return commands;
}

Step writing(const std::string& name, Program& program, const DataItems& items) {
    Transfer transfer;
    transfer.start = [&program, lines = commandsOf(items)] { program.menuWriter.write(lines); };
    transfer.ended = &program.menuWriter.ended;
    return {name, transfer, true, true, {}};
}

}  // namespace

void MenuRestoreSteps::take(const DataItems& items) {
    std::set<std::string> named;
    for (const auto& item : items) {
        named.insert(item.name);
        if (wasRefused(item)) continue;
        (setsCatLine(item.command) ? m_catItems : m_items).push_back(item);
    }
    m_named = named.size();
    std::stable_partition(m_catItems.begin(), m_catItems.end(),
                          [](const DataItem& item) { return !item.command.starts_with("EX028"); });
}

std::string MenuRestoreSteps::whyIncomplete() const {
    if (m_named == std::size_t{menuItemCount}) return {};
    return "it holds " + std::to_string(m_named) + " of " + std::to_string(menuItemCount) +
           " menu items; --force restores these";
}

Step MenuRestoreSteps::itemsStep(Program& program) const {
    return writing("menu", program, m_items);
}

Step MenuRestoreSteps::catStep(Program& program) const {
    Step step = writing("CAT settings", program, m_catItems);
    step.mayCutLine = true;
    return step;
}

}  // namespace korvex::cli
