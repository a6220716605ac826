#pragma once

#include <deque>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "platform/Doors.h"
#include "share/SharedLine.h"

namespace korvex {

/// The radio as a program sees it that speaks hamlib's network protocol (model 2, "NET rigctl"): frequency, mode, VFO,
/// split and transmit of the radio, one request after the other. What it does not know it answers with hamlib's "not
/// available".
class RigctlFace {
public:
    RigctlFace(SharedLine& line, std::shared_ptr<Caller> caller);
    RigctlFace(const RigctlFace&) = delete;
    RigctlFace& operator=(const RigctlFace&) = delete;
    ~RigctlFace();

    Signal<> left;  ///< the connection is over; last in its handler, this object may be destroyed

private:
    using Words = std::vector<std::string>;
    struct Request;
    struct Value {
        std::string label;  ///< hamlib's, for whoever asked with "+"
        std::string text;
    };
    using Then = std::function<void(const std::string& text)>;
    static const Request* requestNamed(const std::string& name);

    void hear(std::string_view bytes);
    void goOn();
    void begin(const std::string& line);
    void answer(const std::vector<Value>& values);
    void end(int code);
    void reply(const std::string& text);
    /// Goes on with what stands in the answer behind the question's own characters; without one the request ends.
    void ask(const std::string& wire, const Then& then);
    /// `then` gets "?;" when the radio refuses, else nothing.
    void set(const std::string& wire, const Then& then);
    void setAndEnd(const std::string& wire);
    /// The VFO, '0' or '1', that receives or that transmits.
    void withVfo(const std::function<void(char vfo)>& then) { ask(m_ofTransmitter ? "FT;" : "VS;", first(then)); }
    static Then first(const std::function<void(char)>& then);

    void getFrequency(const Words& words);
    void setFrequency(const Words& words);
    void getMode(const Words& words);
    void setMode(const Words& words);
    void getVfo(const Words& words);
    void setVfo(const Words& words);
    void getSplit(const Words& words);
    void setSplit(const Words& words);
    void chooseTransmitter(char vfo);
    void getPtt(const Words& words);
    void setPtt(const Words& words);
    void checkVfo(const Words& words);
    void dumpState(const Words& words);
    void getPower(const Words& words);
    void getLockMode(const Words& words);
    void quit(const Words& words);

    SharedLine& m_line;
    std::shared_ptr<Caller> m_caller;
    std::string m_heard;
    std::deque<std::string> m_lines;
    // Of the request under way:
    bool m_busy = false;
    const Request* m_request = nullptr;
    bool m_extended = false;  // labels, and a code behind everything
    bool m_ofTransmitter = false;
    Connections m_connections;
};

}  // namespace korvex
