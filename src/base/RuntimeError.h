#pragma once

#include <optional>
#include <string>
#include <utility>
#include <variant>

namespace korvex {

/// The run-time error numbers that message titles and texts are chosen by. The figures are the classic ones of desktop
/// Basic, because the program's message boxes are keyed by them.
namespace errors {
inline constexpr int OutOfMemory = 7;
inline constexpr int TypeMismatch = 13;
inline constexpr int FileNotFound = 53;
inline constexpr int DeviceIo = 57;
inline constexpr int DiskFull = 61;
inline constexpr int PermissionDenied = 70;
inline constexpr int PathFileAccess = 75;
inline constexpr int PathNotFound = 76;
inline constexpr int InvalidPropertyValue = 380;
inline constexpr int InvalidPortNumber = 8002;
inline constexpr int PortAlreadyOpen = 8005;
inline constexpr int PortGone = 8012;
inline constexpr int PortNotOpen = 8018;
inline constexpr int LineNotSupported = 8019;
}  // namespace errors

/// A failure as a value: what a file or a port operation gives back instead of throwing.
struct RuntimeError {
    int number = 0;    ///< one of korvex::errors
    std::string text;  ///< UTF-8, written for the user

    bool operator==(const RuntimeError&) const = default;
};

/// Nothing when all went well, else what went wrong. Whoever gets one looks at it.
struct [[nodiscard]] Failure : std::optional<RuntimeError> {
    using std::optional<RuntimeError>::optional;
};

/// A value or the reason why there is none.
template <class T>
class [[nodiscard]] Result {
public:
    Result(T value) : m_content(std::move(value)) {}
    Result(RuntimeError error) : m_content(std::move(error)) {}

    explicit operator bool() const { return std::holds_alternative<T>(m_content); }
    T& operator*() { return std::get<T>(m_content); }
    const T& operator*() const { return std::get<T>(m_content); }
    T* operator->() { return &std::get<T>(m_content); }
    const T* operator->() const { return &std::get<T>(m_content); }
    const RuntimeError& error() const { return std::get<RuntimeError>(m_content); }

private:
    std::variant<T, RuntimeError> m_content;
};

}  // namespace korvex
