#include "platform/Failure.h"

#include <gtest/gtest.h>

#include <new>
#include <set>
#include <stdexcept>

#include "platform/FailureTexts.h"
#include "platform/dao.h"

namespace ovalia {
namespace {

template <class Thrown>
Failure caught(Thrown thrown) {
  try {
    throw thrown;
  } catch (...) {
    return currentFailure();
  }
}

TEST(Failure, keeps_its_number_and_description) {
  const Failure failure(70, u"Sin permiso sobre «Peña»");
  EXPECT_EQ(failure.number(), 70);
  EXPECT_EQ(failure.description(), u"Sin permiso sobre «Peña»");
  EXPECT_STREQ(failure.what(), "Sin permiso sobre «Peña» [70]");
}

TEST(Failure, without_a_description_has_the_standard_text_of_its_number) {
  EXPECT_EQ(Failure(53).description(), failureText(53));
  EXPECT_EQ(Failure(53).description(),
            u"No se encuentra el fichero. Compruebe el nombre y que no se ha movido o borrado.");
}

TEST(Failure, every_number_of_the_runtime_and_the_database_has_a_text_of_its_own) {
  namespace rt = failure;
  namespace db = dao::failure;
  const std::int32_t numbers[] = {rt::badArgument,
                                  rt::overflow,
                                  rt::outOfMemory,
                                  rt::indexOutOfRange,
                                  rt::typeMismatch,
                                  rt::outOfStackSpace,
                                  rt::internalError,
                                  rt::fileNotFound,
                                  rt::fileAlreadyExists,
                                  rt::diskFull,
                                  rt::permissionDenied,
                                  rt::pathFileAccess,
                                  rt::pathNotFound,
                                  rt::objectNotSet,
                                  rt::invalidUseOfNull,
                                  rt::notInList,
                                  rt::alreadyShown,
                                  rt::classCannotBeCreated,
                                  rt::noSuchMember,
                                  rt::wrongArguments,
                                  rt::noSuchControl,
                                  rt::dialogCancelled,
                                  rt::indexOutOfBounds,
                                  rt::elementNotFound,
                                  rt::keyNotUnique,
                                  db::updateWithoutEdit,
                                  db::noCurrentRecord,
                                  db::duplicateKey,
                                  db::readOnly,
                                  db::commitWithoutBegin,
                                  db::unknownColumn,
                                  db::syntax,
                                  db::criterionSyntax,
                                  db::unknownTable,
                                  db::insertSyntax,
                                  db::updateSyntax,
                                  db::tooLong,
                                  db::recordDeleted,
                                  db::locked,
                                  db::referenced,
                                  db::missingRelated,
                                  db::notInCollection,
                                  db::required,
                                  db::zeroLength,
                                  db::damaged,
                                  db::cannotOpen,
                                  db::conversion,
                                  db::cancelledByObject};
  std::set<Text> texts;
  for (const std::int32_t number : numbers) {
    const Text text = failureText(number);
    EXPECT_EQ(text.find(u"error " + toText(number)), Text::npos) << number << " has the generic text";
    EXPECT_GE(std::count(text.begin(), text.end(), u'.'), 2) << number << " does not say what to do";
    EXPECT_TRUE(texts.insert(text).second) << number << " shares its text";
  }
  EXPECT_EQ(std::size(failureTexts), std::size(numbers)) << "a number stands twice in the table, or not here";
}

TEST(Failure, a_number_without_a_text_is_named_in_a_general_one) {
  EXPECT_NE(failureText(12345).find(u"12345"), Text::npos);
  EXPECT_NE(failureText(-7).find(u"-7"), Text::npos);
}

TEST(CurrentFailure, is_the_failure_itself) {
  const Failure failure = caught(Failure(3022, u"repetido"));
  EXPECT_EQ(failure.number(), 3022);
  EXPECT_EQ(failure.description(), u"repetido");
}

TEST(CurrentFailure, lack_of_memory_is_7) { EXPECT_EQ(caught(std::bad_alloc()).number(), 7); }

TEST(CurrentFailure, any_other_exception_is_51_with_its_own_text) {
  const Failure failure = caught(std::runtime_error("señal perdida"));
  EXPECT_EQ(failure.number(), 51);
  EXPECT_EQ(failure.description(), u"señal perdida");
}

TEST(CurrentFailure, an_exception_without_text_or_of_no_known_kind_is_51_with_the_standard_text) {
  EXPECT_EQ(caught(std::runtime_error("")).description(), failureText(51));
  EXPECT_EQ(caught(42).number(), 51);
  EXPECT_EQ(caught(42).description(), failureText(51));
}

}  // namespace
}  // namespace ovalia
