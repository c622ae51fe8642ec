#include "platform/Failure.h"

#include <algorithm>
#include <iterator>
#include <new>

#include "platform/FailureTexts.h"

namespace ovalia {

Failure::Failure(std::int32_t number, Text description)
    : number_(number),
      description_(description.empty() ? failureText(number) : std::move(description)),
      what_(toUtf8(description_) + " [" + std::to_string(number) + "]") {}

Text failureText(std::int32_t number) {
  const auto found = std::find_if(std::begin(failureTexts), std::end(failureTexts),
                                  [=](const FailureText& entry) { return entry.number == number; });
  if (found != std::end(failureTexts)) return Text(found->text);
  return u"Se ha producido el error " + toText(number) +
         u". Repita la operación y, si vuelve a aparecer, comunique este número a soporte.";
}

Failure currentFailure() {
  try {
    throw;
  } catch (const Failure& failure) {
    return failure;
  } catch (const std::bad_alloc&) {
    return Failure(failure::outOfMemory);
  } catch (const std::exception& other) {
    return Failure(failure::internalError, fromUtf8(other.what()));
  } catch (...) {
    return Failure(failure::internalError);
  }
}

}  // namespace ovalia
