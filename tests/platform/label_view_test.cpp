#include "velmora/platform/label_view.h"

#include <gtest/gtest.h>

namespace {

TEST(LabelView, ALongTextEndsInAnEllipsisOfWholeCharacters) {
  VELLabelView label;
  label.setText("Größe der gemessenen Spannung über der Zeit");
  const double whole = label.textSize().width;
  label.shortenToWidth(whole);
  EXPECT_EQ(label.text(), "Größe der gemessenen Spannung über der Zeit");
  double former = whole;
  for (const double room : {whole * 0.9, whole * 0.5, 40.0, 20.0}) {
    label.setText("Größe der gemessenen Spannung über der Zeit");
    label.shortenToWidth(room);
    EXPECT_LE(label.textSize().width, room);
    EXPECT_LT(label.textSize().width, former);
    EXPECT_TRUE(label.text().ends_with("…"));
    EXPECT_EQ(label.text().find("\xC3…"), std::string::npos) << "half a character";
    former = label.textSize().width;
  }
  label.shortenToWidth(0.0);
  EXPECT_EQ(label.text(), "…");
}

}  // namespace
