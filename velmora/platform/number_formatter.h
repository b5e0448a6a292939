// platform/number_formatter.h: numbers as people of a place write them.
#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "velmora/platform/export.h"

/// Formats numbers in plain decimal notation, rounding half to even. Not copyable; share it by pointer.
class VELMORA_API VELNumberFormatter {
 public:
  /// @param locale language and place, as "en_US" or "de"
  /// @throws VELInvalidArgumentException naming an unknown locale
  explicit VELNumberFormatter(const std::string& locale = "en_US");
  VELNumberFormatter(const VELNumberFormatter&) = delete;
  VELNumberFormatter& operator=(const VELNumberFormatter&) = delete;
  ~VELNumberFormatter();

  const std::string& locale() const { return _locale; }
  /// At least so many digits behind the decimal mark, 0 at first; limited to 0 to 100 and raises the maximum.
  int32_t minimumFractionDigits() const { return _minimumFractionDigits; }
  void setMinimumFractionDigits(int32_t digits);
  /// At most so many, 3 at first; limited to 0 to 100 and lowers the minimum.
  int32_t maximumFractionDigits() const { return _maximumFractionDigits; }
  void setMaximumFractionDigits(int32_t digits);
  /// Whether thousands are set apart; true at first.
  bool usesGrouping() const { return _usesGrouping; }
  void setUsesGrouping(bool usesGrouping);

  /// UTF-8. NaN and infinities have their signs of the locale.
  std::string stringFromNumber(double number) const;

 private:
  struct Engine;
  void rebuild();

  std::string _locale;
  int32_t _minimumFractionDigits = 0;
  int32_t _maximumFractionDigits = 3;
  bool _usesGrouping = true;
  std::unique_ptr<Engine> _engine;
};
