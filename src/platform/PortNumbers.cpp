#include "platform/PortNumbers.h"

#include <algorithm>
#include <utility>

namespace korvex {

void PortNumbers::give(int number, const std::string& name) {
    m_entries[number] = {Origin::Given, name};
}

void PortNumbers::reserve(int number) {
    m_entries[number] = {Origin::Reserved, {}};
}

void PortNumbers::remember(int number, const std::string& name) {
    const auto known = m_entries.find(number);
    if (known != m_entries.end() &&
        (known->second.origin == Origin::Given || known->second.origin == Origin::Reserved)) {
        return;
    }
    m_entries[number] = {Origin::Remembered, name};
}

const FoundPort* PortNumbers::foundAs(const std::string& name) const {
    const auto port = std::find_if(m_found.begin(), m_found.end(), [&](const FoundPort& candidate) {
        return candidate.device == name ||
               std::find(candidate.names.begin(), candidate.names.end(), name) != candidate.names.end();
    });
    return port == m_found.end() ? nullptr : &*port;
}

bool PortNumbers::isTaken(const FoundPort& port) const {
    return std::any_of(m_entries.begin(), m_entries.end(),
                       [&](const auto& entry) { return foundAs(entry.second.name) == &port; });
}

void PortNumbers::setFound(std::vector<FoundPort> found) {
    m_found = std::move(found);
    std::erase_if(m_entries, [this](const auto& entry) {
        return entry.second.origin == Origin::Found && foundAs(entry.second.name) == nullptr;
    });
    for (const auto& port : m_found) {
        if (isTaken(port)) continue;
        int number = first;
        while (m_entries.contains(number)) ++number;
        if (number > last) return;
        m_entries[number] = {Origin::Found, port.device};
    }
}

std::string PortNumbers::deviceOf(int number) const {
    const auto entry = m_entries.find(number);
    return entry == m_entries.end() ? std::string() : entry->second.name;
}

const FoundPort* PortNumbers::foundAt(int number) const {
    const std::string name = deviceOf(number);
    return name.empty() ? nullptr : foundAs(name);
}

std::string PortNumbers::nameToRemember(int number) const {
    const auto entry = m_entries.find(number);
    if (entry == m_entries.end() || entry->second.origin == Origin::Given) return {};
    const auto* port = foundAt(number);
    if (port == nullptr || port->names.empty()) return {};
    return port->names.front();
}

}  // namespace korvex
