#pragma once

#include <optional>
#include <string>

#include "bandstack/BandStack.h"
#include "bandstack/BandStackReader.h"
#include "bandstack/BandStackWalk.h"
#include "base/Property.h"
#include "platform/GridFace.h"
#include "platform/OwnersFiles.h"

namespace korvex {

/// How the grid of the band stack is shown, with bands, settings and frequencies in words, and what in it differs: one
/// register from another, or the grid from a file or from the radio. The grid keeps its cells.
class BandStackComparison : public GridFace {
public:
    /// `writer` is not used; a walk has one.
    BandStackComparison(BandStack& stack, CatLink& link, Clock& clock, OwnersFiles& files, BandStackWriter& writer);

    /// Remembers the register of the current column.
    void markRegister();
    /// Compares the current column's register with the marked one.
    void compareRegisters();
    /// Asks for the file.
    void compareFile();
    /// Reads the radio's registers, leaves the grid as it is, and puts the radio back where it stood.
    void compareRadio() { m_walk.read(); }
    void end();

    Property<std::string> result;  ///< how much differs, UTF-8
    BandStackReader& reader() { return m_reader; }

    bool differs(int row, int column) const;

    std::string text(int row, int column) const override;
    std::string description(int row, int column) const override;
    std::optional<int> backColour(int row, int column) const override;
    bool beginsGroup(int column) const override;

private:
    struct Other {
        BandStackCells cells;
        std::string name;
        std::string note;  ///< what there is to say of it besides
    };

    std::optional<std::string> otherAnswer(int row, int column) const;
    void show();
    void tellResult();
    void onRead(const Outcome& outcome);

    BandStack& m_stack;
    OwnersFiles& m_files;
    BandStackReader m_reader;
    BandStackWalk m_walk;
    std::optional<Other> m_other;
    int m_marked = 0;  // column; 0: none
    int m_with = 0;    // column that is compared with it; 0: none
    Connections m_connections;
};

}  // namespace korvex
