#include "app/app_url.h"

#include <gtest/gtest.h>

namespace quibbly {
namespace {

TEST(AppURL, asks_for_a_roast_by_host_or_by_the_end_of_its_path) {
  for (const char* url : {"quibbly://roast", "QUIBBLY://Roast", "quibbly://ROAST/", "quibbly:///roast",
                          "quibbly://open/roast", "quibbly://x/toast-and-roast", "quibbly://user@roast:80/now",
                          "quibbly://roast?with=cheese", "quibbly://x/%72oast#end", "quibbly:roast"}) {
    EXPECT_TRUE(AppURL::isRoastAction(url)) << url;
  }
  for (const char* url : {"", "quibbly", "quibbly:", "quibbly://", "quibbly://settings", "other://roast", "//roast",
                          "quibbly://x/roast/", "quibbly://x?roast", "quibbly://x#roast", "quibbly://roaster",
                          "quibbly://roast%", "quibbly://x/%+1roast", "quibbly://x/ roast", " quibbly://roast"}) {
    EXPECT_FALSE(AppURL::isRoastAction(url)) << url;
  }
}

}  // namespace
}  // namespace quibbly
