#include "routines/ModuleValues.h"

#include <gtest/gtest.h>

#include <thread>

namespace ovalia {
namespace {

TEST(ModuleValues, are_shared_inside_a_thread_and_apart_between_threads) {
  moduleValues().PathDB = u"\\datos\\agencia.mdb";
  Text seenElsewhere = u"?";
  std::thread([&] { seenElsewhere = moduleValues().PathDB; }).join();
  EXPECT_EQ(seenElsewhere, u"");
  EXPECT_EQ(moduleValues().PathDB, u"\\datos\\agencia.mdb");
  moduleValues() = {};
}

TEST(ModuleValues, start_empty_with_no_box_up_and_no_report_running) {
  std::thread([] {
    EXPECT_EQ(moduleValues().cgDB, nullptr);
    EXPECT_EQ(moduleValues().ErrLogPath, u"");
    EXPECT_FALSE(moduleValues().MensajeEnCurso);
    EXPECT_FALSE(moduleValues().EnviandoSoporte);
  }).join();
}

}  // namespace
}  // namespace ovalia
