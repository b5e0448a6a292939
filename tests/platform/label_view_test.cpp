#include "velmora/platform/label_view.h"

#include <gtest/gtest.h>

TEST(LabelView, ALongTextEndsInAnEllipsisOfWholeCharacters) {
  const std::string text = "⟷⟷⟷⟷⟷⟷⟷⟷⟷⟷⟷⟷";  // of three bytes each, as the ellipsis
  VELLabelView label;
  label.setText(text);
  const double whole = label.textSize().width;
  label.shortenToWidth(whole);
  EXPECT_EQ(label.text(), text);
  for (double room = whole - 1.0; room > 20.0; room -= 1.0) {
    label.setText(text);
    label.shortenToWidth(room);
    ASSERT_LE(label.textSize().width, room);
    ASSERT_GT(label.textSize().width, room - 20.0) << "as much as there is room for";
    ASSERT_TRUE(label.text().ends_with("…"));
    ASSERT_EQ(label.text().size() % 3, 0u) << "half a character";
  }
  label.shortenToWidth(0.0);
  EXPECT_EQ(label.text(), "…");
}
