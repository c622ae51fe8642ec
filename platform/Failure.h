#pragma once

#include <cstdint>
#include <exception>
#include <string>

#include "platform/Text.h"

namespace ovalia {

// Numbers of the runtime that the logic names or that its surroundings produce. Those of the database model
// stand in platform/dao.h.
namespace failure {
inline constexpr std::int32_t badArgument = 5;
inline constexpr std::int32_t overflow = 6;
inline constexpr std::int32_t outOfMemory = 7;
inline constexpr std::int32_t indexOutOfRange = 9;
inline constexpr std::int32_t typeMismatch = 13;
inline constexpr std::int32_t outOfStackSpace = 28;
inline constexpr std::int32_t internalError = 51;
inline constexpr std::int32_t fileNotFound = 53;
inline constexpr std::int32_t fileAlreadyExists = 58;
inline constexpr std::int32_t diskFull = 61;
inline constexpr std::int32_t permissionDenied = 70;
inline constexpr std::int32_t pathFileAccess = 75;
inline constexpr std::int32_t pathNotFound = 76;
inline constexpr std::int32_t objectNotSet = 91;
inline constexpr std::int32_t invalidUseOfNull = 94;
inline constexpr std::int32_t notInList = 383;
inline constexpr std::int32_t alreadyShown = 400;
inline constexpr std::int32_t classCannotBeCreated = 429;
inline constexpr std::int32_t noSuchMember = 438;
inline constexpr std::int32_t wrongArguments = 450;
inline constexpr std::int32_t noSuchControl = 730;
inline constexpr std::int32_t dialogCancelled = 32755;
inline constexpr std::int32_t indexOutOfBounds = 35600;
inline constexpr std::int32_t elementNotFound = 35601;
inline constexpr std::int32_t keyNotUnique = 35602;
}  // namespace failure

// A failure of the runtime, the database or the surroundings. It is thrown inside a procedure and never
// leaves it: the procedure's trap reports it.
class Failure : public std::exception {
 public:
  // An empty description takes the standard Spanish text of the number.
  explicit Failure(std::int32_t number, Text description = {});

  std::int32_t number() const { return number_; }
  const Text& description() const { return description_; }
  const char* what() const noexcept override { return what_.c_str(); }

 private:
  std::int32_t number_;
  Text description_;
  std::string what_;
};

// The standard Spanish text of a failure number; a generic sentence for a number that has none.
Text failureText(std::int32_t number);

// The failure that the exception being handled stands for: a Failure as it is, std::bad_alloc as 7, any other
// exception as 51 with its own text. Call it inside a catch block only.
Failure currentFailure();

}  // namespace ovalia
