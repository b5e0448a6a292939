// axes/axis_style.h: how an axis looks.
#pragma once

#include <functional>
#include <memory>
#include <utility>

#include "velmora/axes/text_formatting_style.h"
#include "velmora/platform/export.h"
#include "velmora/rendering/brush.h"

/// Pens, brushes, lengths and texts of one axis. A value: copies carry everything but `styleChanged`, which
/// belongs to the owner of the one object. Pens and brushes are shared, not copied.
///
/// A pen reaches its thickness to both sides: 0.5 draws a line of one point.
class VELMORA_API VELAxisStyle {
 public:
  /// The standard visual style.
  VELAxisStyle();
  VELAxisStyle(const VELAxisStyle& other);
  VELAxisStyle& operator=(const VELAxisStyle& other);
  ~VELAxisStyle() = default;

  /// Null draws no line.
  const VELPenPtr& majorGridLinePen() const { return _values.majorGridLinePen; }
  void setMajorGridLinePen(const VELPenPtr& pen) { set(_values.majorGridLinePen, pen); }
  const VELPenPtr& minorGridLinePen() const { return _values.minorGridLinePen; }
  void setMinorGridLinePen(const VELPenPtr& pen) { set(_values.minorGridLinePen, pen); }
  /// Fills every second gap between majors; null fills none.
  const VELBrushPtr& gridBandBrush() const { return _values.gridBandBrush; }
  void setGridBandBrush(const VELBrushPtr& brush) { set(_values.gridBandBrush, brush); }
  const VELPenPtr& majorTickPen() const { return _values.majorTickPen; }
  void setMajorTickPen(const VELPenPtr& pen) { set(_values.majorTickPen, pen); }
  const VELPenPtr& minorTickPen() const { return _values.minorTickPen; }
  void setMinorTickPen(const VELPenPtr& pen) { set(_values.minorTickPen, pen); }
  /// Points from the chart frame outwards.
  double majorTickSize() const { return _values.majorTickSize; }
  void setMajorTickSize(double size) { set(_values.majorTickSize, size); }
  double minorTickSize() const { return _values.minorTickSize; }
  void setMinorTickSize(double size) { set(_values.minorTickSize, size); }
  /// Points between tick and label, and between labels and title.
  double labelGap() const { return _values.labelGap; }
  void setLabelGap(double gap) { set(_values.labelGap, gap); }
  double titleGap() const { return _values.titleGap; }
  void setTitleGap(double gap) { set(_values.titleGap, gap); }
  /// Points that two labels keep apart.
  double minLabelSpacing() const { return _values.minLabelSpacing; }
  void setMinLabelSpacing(double spacing) { set(_values.minLabelSpacing, spacing); }
  /// Points between minor lines below which minor lines and ticks are left out.
  double minMinorSpacing() const { return _values.minMinorSpacing; }
  void setMinMinorSpacing(double spacing) { set(_values.minMinorSpacing, spacing); }

  bool drawMajorGridLines() const { return _values.drawMajorGridLines; }
  void setDrawMajorGridLines(bool draw) { set(_values.drawMajorGridLines, draw); }
  bool drawMinorGridLines() const { return _values.drawMinorGridLines; }
  void setDrawMinorGridLines(bool draw) { set(_values.drawMinorGridLines, draw); }
  bool drawMajorBands() const { return _values.drawMajorBands; }
  void setDrawMajorBands(bool draw) { set(_values.drawMajorBands, draw); }
  bool drawMajorTicks() const { return _values.drawMajorTicks; }
  void setDrawMajorTicks(bool draw) { set(_values.drawMajorTicks, draw); }
  bool drawMinorTicks() const { return _values.drawMinorTicks; }
  void setDrawMinorTicks(bool draw) { set(_values.drawMinorTicks, draw); }
  bool drawLabels() const { return _values.drawLabels; }
  void setDrawLabels(bool draw) { set(_values.drawLabels, draw); }
  bool drawTitle() const { return _values.drawTitle; }
  void setDrawTitle(bool draw) { set(_values.drawTitle, draw); }

  /// Texts may be changed in place; the change counts as one of this style.
  VELTextFormattingStyle& labelStyle() { return _labelStyle; }
  const VELTextFormattingStyle& labelStyle() const { return _labelStyle; }
  void setLabelStyle(const VELTextFormattingStyle& style);
  VELTextFormattingStyle& titleStyle() { return _titleStyle; }
  const VELTextFormattingStyle& titleStyle() const { return _titleStyle; }
  void setTitleStyle(const VELTextFormattingStyle& style);

  /// Called by every setter.
  void setStyleChanged(std::function<void()> block) {
    _styleChanged = std::make_shared<const std::function<void()>>(std::move(block));
  }

 private:
  struct Values {
    VELPenPtr majorGridLinePen, minorGridLinePen, majorTickPen, minorTickPen;
    VELBrushPtr gridBandBrush;
    double majorTickSize = 0.0, minorTickSize = 0.0;
    double labelGap = 0.0, titleGap = 0.0, minLabelSpacing = 0.0, minMinorSpacing = 0.0;
    bool drawMajorGridLines = true, drawMinorGridLines = true, drawMajorBands = true;
    bool drawMajorTicks = true, drawMinorTicks = true, drawLabels = true, drawTitle = true;
  };

  template <class Value>
  void set(Value& field, const Value& value) {
    field = value;
    changed();
  }
  void changed() const;
  void watchTexts();

  Values _values;
  VELTextFormattingStyle _labelStyle;
  VELTextFormattingStyle _titleStyle;
  /// Shared, so that a block outlives its own call when it replaces itself or the style.
  std::shared_ptr<const std::function<void()>> _styleChanged;
};
