// The formatting library where Debian has only its headers: the code that they declare, compiled
// once.
#include <fmt/format-inl.h>

FMT_BEGIN_NAMESPACE
namespace detail {

template thousands_sep_result<char> thousands_sep_impl<char>(locale_ref);
template char decimal_point_impl<char>(locale_ref);
template dragonbox::decimal_fp<float> dragonbox::to_decimal(float) noexcept;
template dragonbox::decimal_fp<double> dragonbox::to_decimal(double) noexcept;

}  // namespace detail
FMT_END_NAMESPACE
