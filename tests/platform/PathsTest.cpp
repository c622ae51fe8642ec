#include <gtest/gtest.h>

#include "platform/Platform.h"

namespace ovalia {
namespace {

TEST(NativePath, has_single_forward_separators) {
  EXPECT_EQ(nativePath(u"\\srv\\Señal y Cía\\Doc4\\\\4073F00.pdf"), u"/srv/Señal y Cía/Doc4/4073F00.pdf");
  EXPECT_EQ(nativePath(u"\\\\servidor\\datos"), u"/servidor/datos");
  EXPECT_EQ(nativePath(u"/srv/agencia\\Doc4\\"), u"/srv/agencia/Doc4/");
  EXPECT_EQ(nativePath(u"\\"), u"/");
  EXPECT_EQ(nativePath(u"carta.doc"), u"carta.doc");
  EXPECT_EQ(nativePath(u""), u"");
}

TEST(LogicPath, has_backward_separators_and_is_otherwise_kept) {
  EXPECT_EQ(logicPath(u"/srv/Señal y Cía/a.doc"), u"\\srv\\Señal y Cía\\a.doc");
  EXPECT_EQ(logicPath(u"\\srv\\\\doc"), u"\\srv\\\\doc");
  EXPECT_EQ(logicPath(u"/srv//doc/"), u"\\srv\\\\doc\\");
  EXPECT_EQ(logicPath(u""), u"");
}

TEST(LogicPath, leads_back_to_the_native_path) {
  for (const TextView path : {u"/", u"/srv/agencia/", u"/srv/a b.doc"})
    EXPECT_EQ(nativePath(logicPath(path)), path);
}

}  // namespace
}  // namespace ovalia
