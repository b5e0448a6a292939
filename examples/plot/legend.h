// plot/legend.h: which colour is which line.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "velmora/platform/label_view.h"
#include "velmora/platform/view.h"

struct LegendEntry {
  std::string name;
  uint32_t colorCode;
};

/// A name of at most forty bytes: a longer one ends in an ellipsis.
std::string shortenedName(const std::string& name);

/// Rows of colour and name, centred in a width; what does not fit into three rows is counted in a last entry.
class Legend : public VELView {
 public:
  explicit Legend(const std::vector<LegendEntry>& entries);

  /// Arranges the entries. @param width points
  /// @return the height that they take; 0 without entries
  double fillWidth(double width);

 private:
  struct Item {
    std::shared_ptr<VELLabelView> swatch;  // null for the entry that counts the rest
    std::shared_ptr<VELLabelView> name;
    double width = 0.0;
  };
  using Row = std::vector<const Item*>;

  static Item makeItem(const std::string& name, const uint32_t* colorCode);
  std::vector<Row> makeRows(double width);
  void placeRow(const Row& row, double width, double top);
  void hideAll();

  std::vector<Item> _items;
  Item _rest;
  size_t _restCount = 0;
};
