// The architectures of the target: names, numbers, and what each can do.
#ifndef TARGET_ARM_ARCH_H
#define TARGET_ARM_ARCH_H

#include "semantics/sys_predef.h"

// Numbers of the architectures; they stand in the intermediate file.
enum an_arm_architecture : int {
  arch_none = 0,
  arch_8M33 = 10,
  arch_4 = 91,
  arch_5e = 92,
  arch_6 = 93,
  arch_6M0 = 94,
  arch_7A8 = 95,
  arch_7M3 = 96,
  arch_7M4 = 97,
  arch_7R4 = 98,
  arch_7R5 = 99,
};

// The architecture that is compiled for. The numbers do not grow with the abilities (8M33 is 10):
// ask the predicates.
class ARM_ARCH_TYPES {
 public:
  // By name, upper or lower case; null gives none, an unknown name changes nothing.
  void set(const char *name);
  int value() const { return value_; }
  bool is(an_arm_architecture architecture) const { return value_ == architecture; }
  bool is_v5e_or_higher() const;
  bool is_v6_or_higher() const;
  bool is_v7_or_higher() const;
  bool is_v7m() const { return value_ == arch_7M3 || value_ == arch_7M4; }
  bool is_m_profile() const { return is_v7m() || value_ == arch_6M0; }

 private:
  int value_ = arch_4;
};
extern ARM_ARCH_TYPES arm_arch_types;

// Does the condition of a row of target/builtins.def hold?
bool arm_condition_holds(a_builtin_condition condition);

#endif
