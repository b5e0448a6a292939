#include "examples/plot/live_labels.h"

#include <memory>
#include <optional>

#include "examples/plot/label_formats.h"
#include "examples/plot/log_ticks.h"
#include "velmora/velmora.h"

namespace {

// Both ends of what an axis shows; nothing while it shows nothing.
struct Shown {
  double lowest, highest;
};

std::optional<Shown> shownBy(const VELAxisCore* axis) {
  if (!axis || !axis->hasValidVisibleRange()) return std::nullopt;
  return Shown{axis->visibleRange()->minAsDouble(), axis->visibleRange()->maxAsDouble()};
}

// The format is chosen once a draw.
class LiveNumberLabels : public VELNumericLabelProvider {
 public:
  void onBeginAxisDraw() override {
    const auto shown = shownBy(parentAxis().get());
    if (!shown) return;
    _inMillions = readInMillions(shown->lowest, shown->highest);
    _format = numberFormat(shown->lowest, shown->highest);
  }
  std::string formatLabel(const VELGenericType& value) const override {
    return _inMillions ? _millions.formatLabel(value) : formatTex(value, _format);
  }

 private:
  MillionsLabelProvider _millions;
  std::string _format;
  bool _inMillions = false;
};

std::optional<DatePatterns> patternsOf(VELDateTimeAxis& axis) {
  const auto shown = shownBy(&axis);
  const double step = VELGenericDouble(axis.majorDelta());
  if (!shown || !(step > 0.0)) return std::nullopt;
  return datePatterns(shown->lowest, shown->highest, step, true, axis.calendar());
}

class LiveDateLabels : public VELDateTimeLabelProvider {
 public:
  void onBeginAxisDraw() override {
    const auto axis = std::dynamic_pointer_cast<VELDateTimeAxis>(parentAxis());
    if (!axis) return;
    if (const auto patterns = patternsOf(*axis)) _pattern = patterns->label;
  }
  std::string formatLabel(const VELGenericType& value) const override {
    const auto axis = std::dynamic_pointer_cast<VELDateTimeAxis>(parentAxis());
    return axis ? formatDate(value, _pattern, *axis) : std::string();
  }

 private:
  std::string _pattern = "HH:mm:ss";
};

void makeLive(VELAxisBase& axis) {
  axis.setAutoRange(VELAutoRange_Always);
  axis.setTextFormatting({});
  if (axis.isLogarithmicAxis()) return;
  if (dynamic_cast<VELDateTimeAxis*>(&axis))
    axis.setLabelProvider(std::make_shared<LiveDateLabels>());
  else
    axis.setLabelProvider(std::make_shared<LiveNumberLabels>());
}

}  // namespace

void makeLive(const PlotAxes& axes) {
  for (const auto& axis : {axes.x, axes.y, axes.y2})
    if (axis) makeLive(*axis);
}

void updateLiveTitle(VELAxisBase& x, const std::string& name) {
  auto* const axis = dynamic_cast<VELDateTimeAxis*>(&x);
  if (!axis) return;
  const auto patterns = patternsOf(*axis);
  if (!patterns) return;
  std::string title = name;
  if (!patterns->context.empty()) {
    const VELDateFormatter context(patterns->context, axis->locale(), axis->timeZone());
    title += " (" + context.stringFromDate(VELDate(axis->visibleRange()->minAsDouble())) + ")";
  }
  if (title != axis->axisTitle()) axis->setAxisTitle(title);
}
