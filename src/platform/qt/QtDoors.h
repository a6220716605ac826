#pragma once

#include "platform/Doors.h"

namespace korvex {

/// Pseudo terminals, and the loopback interface.
class QtDoors : public Doors {
public:
    Result<Terminal> openTerminal(const std::string& link) override;
    Result<std::unique_ptr<Listener>> listen(int port) override;
    std::string usualLink() const override;
};

}  // namespace korvex
