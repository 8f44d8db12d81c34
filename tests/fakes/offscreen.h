#pragma once

#include <QApplication>
#include <gtest/gtest.h>

namespace quibbly::fakes {

/// Qt without a screen, one for all tests of a program.
class Offscreen : public ::testing::Test {
 protected:
  static void SetUpTestSuite() {
    static int argc = 1;
    static char name[] = "test";
    static char* argv[] = {name, nullptr};
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("QT_LOGGING_RULES", "qt.qpa.*=false");
    // Never destroyed: what Qt makes on the way is gone before it when programs end.
    static const auto* const application = new QApplication(argc, argv);
    ASSERT_NE(application, nullptr);
  }
};

}  // namespace quibbly::fakes
