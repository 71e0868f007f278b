// The architectures of the target.
#include "target/arm_arch.h"

#include <strings.h>
#include <cstring>

#include "semantics/target.h"

ARM_ARCH_TYPES arm_arch_types;

namespace {

struct an_architecture_name {
  const char *name;
  an_arm_architecture number;
};
constexpr an_architecture_name architecture_names[] = {
    {"4", arch_4},     {"5e", arch_5e},   {"6", arch_6},     {"6M0", arch_6M0}, {"7A8", arch_7A8},
    {"7M3", arch_7M3}, {"7M4", arch_7M4}, {"7R4", arch_7R4}, {"7R5", arch_7R5}, {"8M33", arch_8M33},
};

bool fpu_is_single_precision_only() {
  return vfp_support != nullptr && std::strcmp(vfp_support, "FPv4SPD16") == 0;
}

}  // namespace

void ARM_ARCH_TYPES::set(const char *name) {
  if (name == nullptr) {
    value_ = arch_none;
    return;
  }
  for (const an_architecture_name &row : architecture_names)
    if (strcasecmp(row.name, name) == 0) value_ = row.number;
}

bool ARM_ARCH_TYPES::is_v5e_or_higher() const {
  return (value_ >= arch_5e && value_ <= arch_7R5) || value_ == arch_8M33;
}

bool ARM_ARCH_TYPES::is_v6_or_higher() const {
  return (value_ >= arch_6 && value_ <= arch_7R5) || value_ == arch_8M33;
}

bool ARM_ARCH_TYPES::is_v7_or_higher() const {
  return (value_ >= arch_7A8 && value_ <= arch_7R5) || value_ == arch_8M33;
}

bool arm_condition_holds(a_builtin_condition condition) {
  const ARM_ARCH_TYPES &arch = arm_arch_types;
  switch (condition) {
    case bc_always:
      return true;
    case bc_not_m0:
      return !arch.is(arch_6M0);
    case bc_m_profile:
      return arch.is_m_profile();
    case bc_delay:
      return arch.is_m_profile() || arch.is(arch_7R4) || arch.is(arch_7R5);
    case bc_v5e:
      return arch.is_v5e_or_higher();
    case bc_v5e_not_m0:
      return arch.is_v5e_or_higher() && !arch.is(arch_6M0);
    case bc_v5e_not_m3:
      return arch.is_v5e_or_higher() && !arch.is(arch_7M3);
    case bc_v6:
      return arch.is_v6_or_higher();
    case bc_v6_not_m0:
      return arch.is_v6_or_higher() && !arch.is(arch_6M0);
    case bc_v6_not_m3:
      return arch.is_v6_or_higher() && !arch.is(arch_7M3);
    case bc_v6_not_m_profile:
      return arch.is_v6_or_higher() && !arch.is_m_profile();
    case bc_v7_or_m0:
      return arch.is_v7_or_higher() || arch.is(arch_6M0);
    case bc_vfp:
      return vfp_support != nullptr;
    case bc_vfp_double:
      return vfp_support != nullptr && !fpu_is_single_precision_only();
    case bc_vfp_fpv4:
      return fpu_is_single_precision_only();
  }
  return false;
}
