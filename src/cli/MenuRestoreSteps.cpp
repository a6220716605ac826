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

std::function<std::optional<TransferEnd>()> writing(Program& program, const DataItems& items) {
    return [&program, lines = commandsOf(items)] {
        program.menuWriter.write(lines);
        return std::nullopt;
    };
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

Step MenuRestoreSteps::itemsStep(const FileKind& menu, Program& program, const std::string& file) const {
    Step step = restoreStep(menu, file);
    step.transfer.start = writing(program, m_items);
    step.transfer.ended = &program.menuWriter.ended;
    return step;
}

Step MenuRestoreSteps::catStep(Program& program) const {
    Transfer transfer;
    transfer.start = writing(program, m_catItems);
    transfer.ended = &program.menuWriter.ended;
    return {"CAT settings", transfer, {}, true, true, {}};
}

}  // namespace korvex::cli
