#pragma once

#include <chrono>
#include <functional>
#include <initializer_list>
#include <optional>
#include <string>
#include <vector>

namespace ovalia::system {

// The first of the names that is a program of the user's search path; nothing when none is.
std::optional<std::string> findProgram(std::initializer_list<const char*> names);

enum class ProgramEnd { done, failed, tooLate };

// Runs a program, its name first, to its end, without input, its output thrown away. It is failed when it
// cannot be started or ends with a status other than 0; after `limit` it is ended together with all that it
// started. `meanwhile` is called several times a second.
ProgramEnd runProgram(const std::vector<std::string>& command, std::chrono::milliseconds limit,
                      const std::function<void()>& meanwhile = {});

}  // namespace ovalia::system
