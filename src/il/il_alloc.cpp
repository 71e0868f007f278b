// Allocation of the records of entities and types.
//
// A record is cleared as a whole and then set: region memory comes as it was left. What has a head
// gets a copy of source_corresp_template. Records of types never go to a function's region, since
// types are shared over all bodies.
#include "il/il_alloc.h"

#include <cstring>

#include "driver/switches.h"
#include "driver/trans_unit.h"
#include "il/il_alloc_internal.h"
#include "semantics/scope_stk.h"

an_il_header il_header;

const std::uint32_t sizeof_il_entry[iek_last + 1] = {0,
#define IL_ENTRY_KIND(number, name, record) sizeof(record),
#include "il/il_kinds.def"
                                                     9999};

std::size_t il_prefix_size = 2 * sizeof(void *);
an_il_entry_marks il_marks_template;
an_il_entry_marks il_local_marks_template;
bool initial_value_for_il_lowering_flag;
bool okay_to_eliminate_unneeded_il_entries;
a_source_correspondence source_corresp_template;
void (*classify_pragma)(a_pragma *pragma);

namespace {

a_derivation_step *available_derivation_steps;

void set_marks_templates(bool secondary) {
  il_marks_template = {};
  il_marks_template.in_file_scope_region = true;
  il_marks_template.from_secondary_trans_unit = secondary;
  il_marks_template.il_lowered = initial_value_for_il_lowering_flag;
  il_local_marks_template = il_marks_template;
  il_local_marks_template.in_file_scope_region = false;
}

// Entries made while it lives have the form of the primary unit's.
class a_primary_prefix {
 public:
  a_primary_prefix() : saved_size_(il_prefix_size), saved_marks_(il_marks_template) {
    il_prefix_size = 2 * sizeof(void *);
    il_marks_template.from_secondary_trans_unit = false;
  }
  ~a_primary_prefix() {
    il_prefix_size = saved_size_;
    il_marks_template = saved_marks_;
  }
  a_primary_prefix(const a_primary_prefix &) = delete;
  a_primary_prefix &operator=(const a_primary_prefix &) = delete;

 private:
  std::size_t saved_size_;
  an_il_entry_marks saved_marks_;
};

void *alloc_file_scope_il_in_region(a_memory_region_number region, std::size_t size) {
  const a_memory_region_number saved = file_scope_region_number;
  file_scope_region_number = region;
  void *entry = alloc_il(size);
  file_scope_region_number = saved;
  return entry;
}

// A block in the region that the entity lies in.
void *alloc_il_like(const void *entity, std::size_t size) {
  if (!in_file_scope_region(entity)) return alloc_in_current_il_region(size);
  if (!is_primary_translation_unit && !il_marks(entity).from_secondary_trans_unit)
    return alloc_primary_file_scope_il(size);
  return alloc_il(size);
}

}  // namespace

// A primary unit has the orphan link and the marks, a secondary one the link of corresponding
// entries too.
void compute_il_prefix_size() {
  const bool secondary = !is_primary_translation_unit;
  il_prefix_size = (secondary ? 3 : 2) * sizeof(void *);
  set_marks_templates(secondary);
}

void set_il_lowering_flag(bool value) {
  initial_value_for_il_lowering_flag = value;
  set_marks_templates(!is_primary_translation_unit);
}

void *alloc_primary_file_scope_il(std::size_t size) {
  const a_primary_prefix prefix;
  return alloc_file_scope_il_in_region(primary_file_scope_region, size);
}

char *alloc_il_text(const char *text, std::size_t length) {
  char *copy = alloc_text_of_string_literal(length + 1);
  std::memcpy(copy, text, length);
  copy[length] = '\0';
  return copy;
}

// ---- Heads -------------------------------------------------------------------------------------

bool il_entry_kind_has_source_corresp(an_il_entry_kind kind) {
  switch (kind) {
    case iek_constant:
    case iek_type:
    case iek_variable:
    case iek_field:
    case iek_routine:
    case iek_label:
    case iek_namespace:
    case iek_asm_entry:
    case iek_template:
    case iek_macro:
    case iek_template_param:
      return true;
    default:
      return false;
  }
}

a_source_correspondence *source_corresp_for_il_entry(void *entry, an_il_entry_kind kind) {
  return il_entry_kind_has_source_corresp(kind) ? static_cast<a_source_correspondence *>(entry)
                                                : nullptr;
}

void break_source_corresp(a_source_correspondence *corresp) {
  corresp->symbol = nullptr;
  corresp->name = nullptr;
  corresp->unmangled_name = nullptr;
  corresp->trans_unit_corresp = nullptr;
  corresp->decl_pos_supplement = nullptr;
  corresp->name_reference = nullptr;
  corresp->source_sequence_link = nullptr;
  corresp->source_sequence_tail = nullptr;
  corresp->referenced = false;
  corresp->needed = false;
  corresp->is_class_member = false;
  corresp->has_unmangled_name = false;
  corresp->externalized = false;
  corresp->name_linkage_set = false;
}

void break_instance_source_corresp(a_source_correspondence *corresp) {
  corresp->decl_pos_supplement = nullptr;
  corresp->name_reference = nullptr;
  corresp->needed = false;
}

// ---- Source files ------------------------------------------------------------------------------

a_source_file *alloc_source_file() {
  return clear_record(
      static_cast<a_source_file *>(alloc_primary_file_scope_il(sizeof(a_source_file))));
}

a_seq_number_lookup_entry *alloc_seq_number_lookup_entry() {
  return clear_record(static_cast<a_seq_number_lookup_entry *>(
      alloc_primary_file_scope_il(sizeof(a_seq_number_lookup_entry))));
}

// ---- Types -------------------------------------------------------------------------------------

a_type *alloc_type(a_type_kind kind) {
  a_type *type = alloc_fs_record_with_head<a_type>();
  clear_type(type, kind);
  return type;
}

// The head stays.
void clear_type(a_type *type, a_type_kind kind) {
  const a_source_correspondence head = *type;
  a_type *next = type->next;
  a_based_type_list_member *based_types = type->based_types;
  clear_record(type);
  static_cast<a_source_correspondence &>(*type) = head;
  type->next = next;
  type->based_types = based_types;
  type->alignment = 1;
  set_type_kind(type, kind);
}

namespace {

a_routine_type_supplement *alloc_routine_type_supplement() {
  a_routine_type_supplement *supplement = alloc_fs_record<a_routine_type_supplement>();
  supplement->name_linkage = static_cast<a_name_linkage_kind>(default_routine_name_linkage);
  supplement->calling_convention = calling_convention_unset;
  return supplement;
}

a_class_type_supplement *alloc_class_type_supplement() {
  a_class_type_supplement *supplement = alloc_fs_record<a_class_type_supplement>();
  clear_class_type_definition_fields(supplement);
  return supplement;
}

}  // namespace

void clear_class_type_definition_fields(a_class_type_supplement *supplement) {
  supplement->base_classes = supplement->virtual_bases_first = supplement->primary_base = nullptr;
  supplement->class_def_number = 1;
  supplement->vtbl_index = -3;
  supplement->size_without_virtual_bases = 0;
  supplement->alignment_without_virtual_bases = 0;
  supplement->vptr_offset = 0;
  supplement->max_empty_base_offset = 0;
  supplement->friend_classes = nullptr;
  supplement->friend_routines = nullptr;
  supplement->overriding_virtuals = nullptr;
  supplement->vcall_offsets = nullptr;
  supplement->destructor = nullptr;
  supplement->assoc_operator_new = supplement->assoc_operator_delete = nullptr;
  supplement->inline_members = nullptr;
  supplement->key_function = nullptr;
  supplement->subobject_type = nullptr;
  supplement->class_flags_2 = 0;
}

void set_type_kind(a_type *type, a_type_kind kind) {
  type->kind = kind;
  clear_type_variant(type);
  type->is_incomplete = false;
  switch (kind) {
    case tk_void:
      type->is_incomplete = true;
      break;
    case tk_integer:
      type->enum_supplement = alloc_fs_record<an_enum_supplement>();
      type->int_kind = ik_int;
      type->is_small_enum = enum_types_can_be_smaller_than_int || il_header.short_enums_in_use;
      break;
    case tk_routine:
      type->routine_supplement = alloc_routine_type_supplement();
      break;
    case tk_class:
    case tk_struct:
    case tk_union:
      type->is_incomplete = true;
      type->class_supplement = alloc_class_type_supplement();
      break;
    case tk_typeref:
      type->typeref_supplement = alloc_fs_record<a_typeref_supplement>();
      type->typeref_supplement->bit_field_form = -1;
      break;
    case tk_template_param:
      type->template_param_supplement = alloc_fs_record<a_template_param_type_supplement>();
      break;
    default:
      break;
  }
}

a_param_type *alloc_param_type(a_type *type) {
  a_param_type *param = alloc_fs_record<a_param_type>();
  param->type = type;
  param->declared_type = type;
  return param;
}

a_based_type_list_member *alloc_based_type_list_member(a_based_type_relation relation,
                                                       a_type *type) {
  auto *member = clear_record(static_cast<a_based_type_list_member *>(
      alloc_il_like(type, sizeof(a_based_type_list_member))));
  member->relation = relation;
  member->type = type;
  return member;
}

an_exception_specification *alloc_exception_specification() {
  return alloc_fs_record<an_exception_specification>();
}

an_exception_specification_type *alloc_exception_specification_type() {
  return alloc_fs_record<an_exception_specification_type>();
}

a_derivation_step *alloc_derivation_step() {
  a_derivation_step *step = available_derivation_steps;
  if (step == nullptr) return alloc_fs_record<a_derivation_step>();
  available_derivation_steps = step->next;
  return clear_record(step);
}

void free_derivation_step(a_derivation_step *step) {
  step->next = available_derivation_steps;
  available_derivation_steps = step;
}

a_base_class_derivation *alloc_base_class_derivation() {
  return alloc_fs_record<a_base_class_derivation>();
}

a_base_class *alloc_base_class() {
  return alloc_fs_record<a_base_class>();
}

a_vcall_offset_entry *alloc_vcall_offset_entry() {
  return alloc_fs_record<a_vcall_offset_entry>();
}

an_overriding_virtual_function *alloc_overriding_virtual_function() {
  return alloc_fs_record<an_overriding_virtual_function>();
}

a_class_list_entry *alloc_list_entry_for_class() {
  return alloc_fs_record<a_class_list_entry>();
}

a_class_list_entry *alloc_list_entry_for_class_full(const void *entity) {
  return clear_record(
      static_cast<a_class_list_entry *>(alloc_il_like(entity, sizeof(a_class_list_entry))));
}

a_routine_list_entry *alloc_list_entry_for_routine() {
  return alloc_fs_record<a_routine_list_entry>();
}

// ---- Variables, routines, fields ---------------------------------------------------------------

a_variable *alloc_variable(a_storage_class storage_class) {
  a_variable *variable = storage_class < sc_auto ? alloc_fs_record_with_head<a_variable>()
                                                 : alloc_record_with_head<a_variable>();
  variable->storage_class = variable->declared_storage_class = storage_class;
  variable->initially_live = true;
  if (storage_class == sc_static && keep_unneeded_statics) variable->needed = true;
  return variable;
}

a_variable_template_info *alloc_variable_template_info() {
  return alloc_fs_record<a_variable_template_info>();
}

a_field *alloc_field() {
  return alloc_fs_record_with_head<a_field>();
}

a_routine *alloc_routine() {
  a_routine *routine = alloc_fs_record_with_head<a_routine>();
  routine->calling_method = calling_convention_unset;
  return routine;
}

void set_routine_special_kind(a_routine *routine, a_special_function_kind kind) {
  routine->special_kind = kind;
  routine->special_data.all = 0;
}

a_gnu_routine_supplement *alloc_gnu_supplement_for_routine(a_routine *routine) {
  if (routine->gnu_supplement == nullptr)
    routine->gnu_supplement = alloc_fs_record<a_gnu_routine_supplement>();
  return routine->gnu_supplement;
}

a_label *alloc_label() {
  a_label *label = alloc_record_with_head<a_label>();
  label->is_local_to_routine = true;
  return label;
}

a_namespace *alloc_namespace(bool is_alias) {
  a_namespace *name_space = alloc_fs_record_with_head<a_namespace>();
  name_space->is_alias = is_alias;
  return name_space;
}

void clear_namespace(a_namespace *name_space, bool is_alias) {
  clear_record(name_space);
  static_cast<a_source_correspondence &>(*name_space) = source_corresp_template;
  name_space->is_alias = is_alias;
}

a_macro *alloc_macro() {
  return alloc_fs_record_with_head<a_macro>();
}

a_pragma *alloc_pragma(a_pragma_kind kind, a_source_correspondence *entity) {
  auto *pragma = clear_record(
      static_cast<a_pragma *>(entity != nullptr ? alloc_il_like(entity, sizeof(a_pragma))
                                                : alloc_in_current_il_region(sizeof(a_pragma))));
  pragma->kind = kind;
  if (classify_pragma != nullptr) classify_pragma(pragma);
  return pragma;
}

// ---- Templates, lambdas, attributes ------------------------------------------------------------

a_template *alloc_template() {
  return alloc_fs_record_with_head<a_template>();
}
a_template_decl *alloc_template_decl() {
  return alloc_fs_record<a_template_decl>();
}
a_template_param *alloc_template_parameter() {
  return alloc_fs_record_with_head<a_template_param>();
}

namespace {
a_template_arg *available_template_args;
}

a_template_arg *alloc_template_arg(a_template_arg_kind kind) {
  a_template_arg *arg = available_template_args;
  if (arg == nullptr) {
    arg = alloc_fs_record<a_template_arg>();
  } else {
    available_template_args = arg->next;
    clear_record(arg);
  }
  arg->kind = kind;
  return arg;
}

void free_template_arg_list(a_template_arg *list) {
  while (list != nullptr) {
    a_template_arg *next = list->next;
    list->next = available_template_args;
    available_template_args = list;
    list = next;
  }
}

a_lambda *alloc_lambda() {
  return alloc_fs_record<a_lambda>();
}
a_lambda_capture *alloc_lambda_capture() {
  return alloc_fs_record<a_lambda_capture>();
}
an_attribute *alloc_attribute() {
  return alloc_fs_record<an_attribute>();
}
an_attribute_arg *alloc_attribute_arg() {
  return alloc_fs_record<an_attribute_arg>();
}
an_attribute_group *alloc_attribute_group() {
  return alloc_fs_record<an_attribute_group>();
}

// ---- Names and positions -----------------------------------------------------------------------

a_decl_position_supplement *alloc_decl_position_supplement(bool in_file_scope) {
  return in_file_scope ? alloc_fs_record<a_decl_position_supplement>()
                       : alloc_record<a_decl_position_supplement>();
}
a_name_qualifier *alloc_name_qualifier() {
  return alloc_fs_record<a_name_qualifier>();
}
a_name_reference *alloc_name_reference() {
  a_name_reference *reference = alloc_fs_record<a_name_reference>();
  reference->arg_count = -1;
  return reference;
}
void clear_name_reference(a_name_reference *reference) {
  clear_record(reference);
  reference->arg_count = -1;
}

// ---- Life cycle --------------------------------------------------------------------------------

void il_alloc_one_time_init() {
  clear_record(&source_corresp_template);
  source_corresp_template.is_from_declaration = true;
  source_corresp_template.lowered_number = -1;
  register_trans_unit_variable(&il_prefix_size);
  register_trans_unit_variable(&il_marks_template);
  register_trans_unit_variable(&il_local_marks_template);
  register_trans_unit_variable(&initial_value_for_il_lowering_flag);
  register_trans_unit_variable(&okay_to_eliminate_unneeded_il_entries);
  register_trans_unit_variable(&available_local_constants);
  register_trans_unit_variable(&available_derivation_steps);
  register_trans_unit_variable(&available_template_args);
  register_trans_unit_variable(&orphaned_file_scope_il_entries);
  il_constants_one_time_init();
}

void il_alloc_init() {
  clear_record(&il_header);
}

void il_alloc_trans_unit_init() {
  available_local_constants = nullptr;
  available_derivation_steps = nullptr;
  available_template_args = nullptr;
  clear_record(&orphaned_file_scope_il_entries);
  okay_to_eliminate_unneeded_il_entries = remove_unneeded_entities;
  set_il_lowering_flag(false);
  il_constants_trans_unit_init();
}
