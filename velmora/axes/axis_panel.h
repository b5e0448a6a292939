// axes/axis_panel.h: labels and title of one axis on the screen.
//
// Units: points. Frames: the panel's in its area, labels' in the panel. "Along" runs with the axis, "depth"
// counts outwards from the chart frame.
#pragma once

#include <memory>
#include <span>
#include <vector>

#include "velmora/axes/axis_alignment.h"
#include "velmora/axes/default_tick_label.h"
#include "velmora/axes/label_culling.h"
#include "velmora/axes/tick_labels_pool.h"
#include "velmora/platform/export.h"
#include "velmora/platform/label_view.h"
#include "velmora/platform/view.h"

class VELAxisBase;
class VELAxisStyle;

/// A tick that wants a label.
struct VELTickLabelRequest {
  double value = 0.0;   ///< data units
  double centre = 0.0;  ///< points along the panel
  int32_t index = 0;    ///< number of the major tick
};

/// The view of an axis beside the chart frame.
///
/// Always true of the labels that are shown: no two come closer to each other than the style's spacing,
/// none reaches out of the chart view, each stands centred on its tick.
class VELMORA_API VELAxisPanel : public VELView {
 public:
  VELAxisPanel();
  ~VELAxisPanel() override;

  /// The panel's rectangle in coordinates of the chart view, which holds its area.
  VELRect frameInChart() const;

  /// Fills and places labels and title. Labels whose text and font stay are not measured again.
  /// @param viewBounds in coordinates of the chart view
  void updateWithAxis(const VELAxisBase& axis, std::span<const VELTickLabelRequest> ticks,
                      const VELRect& viewBounds);
  /// Hides labels and title.
  void clear();

  /// Depth that ticks, labels and title need, in whole points; NaN before the first update. It follows the
  /// labels that have room along the axis, wherever the panel's own depth puts them now.
  double recommendedSize() const { return _recommendedSize; }
  /// Labels in the order of their ticks; those that are not shown are hidden.
  std::span<const std::shared_ptr<VELDefaultTickLabel>> tickLabels() const { return _labels; }
  const std::shared_ptr<VELLabelView>& titleLabel() const { return _title; }

 private:
  /// Where labels and title stand between the chart frame and the outside.
  struct Depths {
    double labels = 0.0;  ///< start of the labels
    double title = 0.0;   ///< start of the title
    double end = 0.0;
  };

  void fillLabels(const VELAxisBase& axis, std::span<const VELTickLabelRequest> ticks);
  /// Takes what is left of the former labels off the panel, into the pool.
  void retireFormerLabels();
  void cullLabels(std::span<const VELTickLabelRequest> ticks, bool isHorizontal, double spacing);
  void measureLabels(bool isHorizontal);
  /// @param room points that the title may take along the axis; a longer one is shortened
  void fillTitle(const VELAxisBase& axis, double room);
  Depths depthsOf(const VELAxisStyle& style, bool isHorizontal) const;
  void placeLabels(const VELAxisBase& axis, const Depths& depths, const VELRect& visible);
  void placeTitle(const VELAxisBase& axis, const Depths& depths, const VELRect& visible);
  /// Coordinate across the panel of a place that lies @p depth points outside the chart frame.
  double acrossAt(VELAxisAlignment side, double depth) const;

  VELTickLabelsPool _pool;
  std::vector<std::shared_ptr<VELDefaultTickLabel>> _labels;
  std::vector<std::shared_ptr<VELDefaultTickLabel>> _formerLabels;
  std::vector<int32_t> _indices;
  std::vector<int32_t> _formerIndices;
  std::vector<VELLabelExtent> _extents;
  std::shared_ptr<VELLabelView> _title;
  bool _hasTitle = false;
  double _labelDepth = 0.0;
  double _recommendedSize;
};
