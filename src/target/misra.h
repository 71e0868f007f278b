// The rules of MISRA-C:2004: which are on, and how severe their messages are. The checks stand
// where the constructs are read, behind check_misra_c_2004, and report ordinary messages, so that
// the selection is one of severities.
#ifndef TARGET_MISRA_H
#define TARGET_MISRA_H

#include "DIAG/error.h"

enum a_misra_rule_kind : std::uint8_t {
  mrk_none,  // the number is no rule
  mrk_required,
  mrk_mandatory,  // required and not to be lowered
  mrk_advisory
};

// The message of a rule, with the severity of its kind; with_name: the form with a name in it,
// where a rule has two. ec_no_error and mrk_none for a number that is no rule.
an_error_code rule_for_number(int major, int minor, an_error_severity *severity,
                              a_misra_rule_kind *kind, bool with_name);

// Turns the rules of a box of numbers on or off, from a position on (null: everywhere). required
// and advisory select the kinds. reset: back to what the command line said instead of on.
// also_default: this is what a reset goes back to.
void misra_c_2004_set_rules(int first_major, int last_major, int first_minor, int last_minor,
                            const a_source_position *position, bool also_default, bool reset,
                            bool enable, bool required, bool advisory);
// Turns the checks on and obeys a list like "all,-19.7,12.1-5". *error: an element is malformed;
// the others took effect.
void process_check_misra(const char *text, const a_source_position *position, bool *error,
                         bool also_default, bool reset);
// The severity of the required or advisory rules: "error", "warning", "remark", any other word
// none.
void process_misra_severity(a_misra_rule_kind kind, const char *text,
                            const a_source_position *position);
// True if a rule is on that nothing looks after yet.
bool some_misra_rule_is_not_checked();

void misra_early_init();

#endif
