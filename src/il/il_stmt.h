// Statements, in the region of their function.
#ifndef IL_IL_STMT_H
#define IL_IL_STMT_H

#include "il/il_source_corresp.h"

struct a_statement {
  a_source_position position;
  a_source_position end_position;
  a_statement *next;
  a_statement *parent;
  an_attribute *attributes;
  an_expr_node *expr;  // the expression, condition or operand; null: none
  a_statement_kind kind;
  bool has_associated_pragma : 1;
  bool is_generated : 1;
  bool is_unreachable : 1;
  bool is_lowered : 1;
  bool is_fallthrough : 1;  // the attribute on a null statement
  bool is_constexpr_if : 1;
  bool is_break : 1;  // a goto that was written break
  bool is_continue : 1;
  bool is_init_capture : 1;
  bool ends_unreachable : 1;  // control does not leave it at its end
  union {
    struct {  // stmk_if
      a_statement *then_stmt;
      a_statement *else_stmt;
      a_source_position else_position;
    };
    struct {  // stmk_while, stmk_do, stmk_for, stmk_range_for, stmk_switch; stmk_case: the
      a_statement *body;  // statement behind the label
      union {
        a_for_loop_supplement *for_supplement;
        a_range_for_supplement *range_for_supplement;
        a_switch_supplement *switch_supplement;
        a_switch_case_entry *switch_case_entry;
      };
    };
    struct {  // stmk_goto, stmk_label
      a_label *label;
      an_object_lifetime *lifetime;
    };
    a_dynamic_init *return_init;  // stmk_return: null with a plain expr
    struct {                      // stmk_block
      a_statement *first_statement;
      a_block_supplement *block_supplement;
    };
    a_dynamic_init *init;               // stmk_init, stmk_stmt_expr_result
    an_asm_entry *asm_entry;            // stmk_asm
    a_try_supplement *try_supplement;   // stmk_try
    an_il_entity_list_entry *entities;  // stmk_decl
    a_vla_dimension *vla_dimension;     // stmk_set_vla_size
    struct {                            // stmk_vla_decl
      union {
        a_type *vla_type;  // a typedef
        a_variable *vla_variable;
      };
      bool vla_is_typedef;
    };
    std::uint64_t variant_words[3];
  };
  a_statement *lowering_link;  // lowering's own
};

struct a_block_supplement {
  a_source_position end_position;
  a_scope *scope;
  an_object_lifetime *lifetime;
  bool is_generated : 1;
  bool is_statement_expr : 1;
  bool is_function_body : 1;
};
struct a_for_loop_supplement {
  a_statement *init_statement;
  an_expr_node *increment_expr;
  a_scope *scope;
  a_statement *condition_statement;
  a_statement *body_statement;
};
struct a_range_for_supplement {
  a_variable *range_var;
  a_variable *begin_var;
  a_variable *end_var;
  a_variable *loop_var;
  a_scope *scope;
  a_scope *init_scope;
  a_scope *body_scope;
  an_expr_node *iterator_expr;
};
struct a_switch_supplement {
  a_switch_case_entry *first_case;  // in order of the source
  a_switch_case_entry *last_case;
  a_switch_case_entry *default_case;
  a_switch_case_entry *sorted_cases;  // by value, linked through next_sorted
};
struct a_switch_case_entry {
  a_switch_case_entry *next;
  a_switch_case_entry *next_sorted;
  a_statement *statement;
  a_constant *case_value;       // null for default
  a_constant *range_end_value;  // of case a ... b
  a_source_position position;
  a_source_position value_position;
  a_source_position range_end_position;
  std::uint32_t label_number;  // the generator's own
  bool is_default : 1;
  bool is_range : 1;
  bool falls_in : 1;  // control reaches it from above
};
struct a_try_supplement {
  a_statement *statement;
  a_handler *handlers;
  an_object_lifetime *lifetime;
  an_eh_info_entry *eh_entry;
};
struct a_handler {
  a_handler *next;
  a_source_position position;
  a_variable *exception_variable;  // null: catch (...)
  a_statement *statement;
  a_dynamic_init *init;
  a_variable *parameter;
  a_scope *scope;
};

#endif
