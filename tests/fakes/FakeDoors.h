#pragma once

#include <memory>
#include <string>
#include <utility>

#include "platform/Doors.h"

namespace korvex::fakes {

/// What a test says in the place of another program, and what it has heard. Goes on when the program hangs up.
struct FakeProgram {
    Caller* caller = nullptr;  ///< null while nobody listens to it
    std::string heard;

    /// The test is the event loop: call it from outside the program's calls.
    void say(std::string_view bytes) const {
        if (caller != nullptr) caller->said.emit(bytes);
    }
    void leave() const {
        if (caller != nullptr) caller->left.emit();
    }
    std::string takeHeard() { return std::exchange(heard, {}); }
};

class FakeCaller : public Caller {
public:
    explicit FakeCaller(FakeProgram& program) : m_program(program) { m_program.caller = this; }
    ~FakeCaller() override { m_program.caller = nullptr; }
    void write(std::string_view bytes) override { m_program.heard += bytes; }

private:
    FakeProgram& m_program;
};

/// One device, and one port to listen at.
class FakeDoors : public Doors {
public:
    FakeProgram atDevice;
    Failure failure;
    Listener* listener = nullptr;

    Result<Terminal> openTerminal(const std::string&) override {
        if (failure) return *failure;
        return Terminal{"/dev/pts/fake", std::make_unique<FakeCaller>(atDevice)};
    }
    Result<std::unique_ptr<Listener>> listen(int) override {
        if (failure) return *failure;
        auto made = std::make_unique<FakeListener>();
        listener = made.get();
        return std::unique_ptr<Listener>(std::move(made));
    }
    std::string usualLink() const override { return "/run/fake"; }

    void connect(FakeProgram& program) const { listener->called.emit(std::make_shared<FakeCaller>(program)); }

private:
    class FakeListener : public Listener {};
};

}  // namespace korvex::fakes
