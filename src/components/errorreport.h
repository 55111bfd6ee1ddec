// The one place that reports a run-time error of the program: a message box with the
// error's number and description, then the program ends with a non-zero status.
#pragma once

#include <exception>

#include "components/runtimeerror.h"

namespace ErrorReport {

// Exit status of a program ended by a run-time error.
inline constexpr int ExitStatus = 3;

[[noreturn]] void reportAndExit(const RuntimeError& error);
[[noreturn]] void reportAndExit(const std::exception& error);

// Runs f; a RuntimeError or any other exception escaping it is reported.
template <typename F>
void guard(F&& f)
{
    try {
        f();
    } catch (const RuntimeError& e) {
        reportAndExit(e);
    } catch (const std::exception& e) {
        reportAndExit(e);
    }
}

} // namespace ErrorReport
