// Linking: names to definitions, definitions to addresses, and where the host's routines come in.
#include <algorithm>
#include <cstring>

#include "tools/ifrun_machine.h"

namespace {

// The words of a command line, from the comment record or an option set.
void apply_word(std::string_view word, bool *big_endian, bool *eabi) {
  if (word == "--little_endian") *big_endian = false;
  if (word == "--big_endian") *big_endian = true;
  if (word == "--abi=eabi") *eabi = true;
}

bool is_constant_type(const TYPE *type) {
  while (type != nullptr) {
    if (type->kind == TYPE::QUALIFIED) {
      if ((type->qualifiers & TYPE::CONST_QUAL) != 0 &&
          (type->qualifiers & TYPE::VOLATILE_QUAL) == 0)
        return true;
      type = type->component;
    } else if (type->kind == TYPE::TYPEDEF || type->kind == TYPE::ARRAY) {
      type = type->component;
    } else {
      return false;
    }
  }
  return false;
}

}  // namespace

a_machine::a_machine(std::uint32_t memory_size, std::uint32_t stack_size) : memory(memory_size) {
  static_end = static_start;
  stack_pointer = memory_size - 64;
  stack_low = memory_size - stack_size;
  static_limit = stack_low;
}

void a_machine::add_file(IF_READER *file) {
  files.push_back(file);
}

void a_machine::read_options_of(IF_READER *file) {
  bool big_endian = true, is_eabi = false;
  for (const an_if_record_read &record : file->file_records) {
    if (record.kind != ifr_comment) continue;
    std::string_view text = record.text;
    while (!text.empty()) {
      std::size_t end = std::min(text.find_first_of(" \t"), text.size());
      apply_word(text.substr(0, end), &big_endian, &is_eabi);
      text.remove_prefix(std::min(end + 1, text.size()));
    }
  }
  for (const OPTION_SET &set : file->option_sets)
    if (set.id == 0)
      for (const char *word : set.texts)
        apply_word(word, &big_endian, &is_eabi);
  if (file == files.front()) {
    memory.big_endian = big_endian;
    eabi = is_eabi;
  } else if (memory.big_endian != big_endian || eabi != is_eabi) {
    bad_file(std::string(file->source_name) + " has another byte order or ABI than the first file");
  }
}

a_callee *a_machine::find_routine(const std::string &name) {
  auto found = externals.find(name);
  if (found != externals.end() && found->second.callee != nullptr) return found->second.callee;
  // Outside the EABI every C name has an underscore in front.
  std::string_view plain = name;
  if (!eabi && !plain.empty() && plain[0] == '_') plain.remove_prefix(1);
  a_host_routine host = find_host_routine(plain);
  if (host == nullptr) return nullptr;
  a_callee *callee = callees.emplace_back(std::make_unique<a_callee>()).get();
  callee->name = name;
  callee->host = host;
  externals[name].callee = callee;
  return callee;
}

// A definition takes its name unless a stronger one has it: a plain definition wins over a weak
// one, one with a value over one without, and of equal ones in a group the first stays.
void a_machine::enter_definition(IF_SYMBOL *symbol, a_name *name) {
  bool weak = symbol->has_pragma(fpk_QX_WEAK);
  bool grouped = symbol->has_pragma(fpk_COMDAT_GROUP);
  auto body = bodies.find(symbol);
  if (symbol->is_routine() && body == bodies.end()) return;
  if (name->definition != nullptr) {
    bool old_has_value = name->definition->location != 0;
    bool new_has_value = symbol->location != 0;
    if (weak && !name->is_weak) return;
    if (!(name->is_weak && !weak)) {
      if (grouped || !new_has_value) return;
      if (old_has_value && !symbol->is_routine() && name->definition->storage_class != isc_static)
        bad_file("two definitions of " + std::string(symbol->name));
      if (symbol->is_routine()) bad_file("two definitions of " + std::string(symbol->name));
    }
  }
  name->definition = symbol;
  name->is_weak = weak;
  if (!symbol->is_routine()) return;
  a_routine_code *code = routines.emplace_back(std::make_unique<a_routine_code>()).get();
  code->function = body->second;
  code->name = symbol->name;
  if (name->callee == nullptr)
    name->callee = callees.emplace_back(std::make_unique<a_callee>()).get();
  name->callee->name = symbol->name;
  name->callee->code = code;
}

a_machine::a_name *a_machine::name_of(const IF_SYMBOL *symbol) {
  auto own = statics.find(symbol);
  if (own != statics.end()) return &own->second;
  return &externals[symbol->name];
}

void a_machine::enter_symbols(IF_READER *file) {
  for (an_if_function &function : file->functions)
    bodies[function.symbol] = &function;
  for (IF_SYMBOL *symbol : file->globals) {
    a_name *name =
        symbol->storage_class == isc_static ? &statics[symbol] : &externals[symbol->name];
    if (symbol->storage_class == isc_extern) continue;
    enter_definition(symbol, name);
  }
}

void a_machine::lay_out_symbols(IF_READER *file) {
  std::unordered_map<const IF_SYMBOL *, std::uint32_t> initial_sizes;
  for (const an_if_init &init : file->inits)
    initial_sizes[init.symbol] = size_of_initial_value(init);
  for (IF_SYMBOL *symbol : file->globals) {
    if (symbol->is_routine() || !symbol->is_defining()) continue;
    a_name *name = name_of(symbol);
    if (name->definition != symbol || name->address != 0) continue;
    std::uint32_t align = std::max(symbol->align / 8, 1u);
    name->size = static_cast<std::uint32_t>((symbol->size + 7) / 8);
    // An initialized flexible array makes the variable larger than its type.
    auto initial_size = initial_sizes.find(symbol);
    if (initial_size != initial_sizes.end())
      name->size = std::max(name->size, initial_size->second);
    name->address = alloc_static(name->size, align, a_memory::writable);
  }
}

std::uint32_t a_machine::alloc_static(std::uint32_t size, std::uint32_t align,
                                      a_memory::a_state state) {
  static_end = (static_end + align - 1) & ~(align - 1);
  std::uint32_t address = static_end;
  if (size > static_limit - static_end) bad_file("the program is too large for its memory");
  memory.map(address, size, state);
  static_end += size + 8;  // a gap, so that running over the end is a fault
  return address;
}

// A synonym stands for another routine: its pragma names the target.
void a_machine::collect_initializers(IF_READER *file) {
  for (IF_SYMBOL *symbol : file->globals) {
    for (const PRAGMA &pragma : symbol->pragmas) {
      if (pragma.kind == fpk_FUNC_SYNONYM && pragma.texts.size() == 2 &&
          std::strcmp(pragma.texts[1], "1") == 0) {
        a_name *name = name_of(symbol);
        if (name->callee == nullptr || name->callee->code == nullptr) {
          a_callee *target = find_routine(pragma.texts[0]);
          if (target != nullptr) name->callee = target;
        }
      }
      if (pragma.kind == fpk_FUNC_IN_INIT_ARRAY) {
        a_name *name = name_of(symbol);
        if (name->callee != nullptr && name->definition == symbol)
          initializers.push_back(name->callee);
      }
    }
  }
}

// The objects of the host's library that programs refer to by name.
void a_machine::place_host_objects() {
  errno_address = alloc_static(4, 4, a_memory::writable);
  strtok_position = alloc_static(4, 4, a_memory::writable);
  // A block that looks as the C library's reentrancy record does at its start: the error number and
  // the three standard streams, whose addresses are all that the host routines look at.
  std::uint32_t streams = alloc_static(64, 8, a_memory::writable);
  standard_streams = streams + 32;
  for (std::uint32_t i = 0; i < 3; i++)
    memory.store(streams + 4 + 4 * i, 4, standard_streams + 8 * i);
  std::uint32_t pointer = alloc_static(4, 4, a_memory::writable);
  memory.store(pointer, 4, streams);
  std::uint32_t classes = alloc_static(384, 4, a_memory::writable);
  for (int c = 0; c < 128; c++) {
    unsigned bits = 0;
    if (c >= 'A' && c <= 'Z') bits |= 01;
    if (c >= 'a' && c <= 'z') bits |= 02;
    if (c >= '0' && c <= '9') bits |= 04;
    if (c == ' ' || (c >= 9 && c <= 13)) bits |= 010;
    if (c > ' ' && c < 127 && (bits & 07) == 0) bits |= 020;
    if (c < ' ' || c == 127) bits |= 040;
    if ((c >= 'A' && c <= 'F') || (c >= 'a' && c <= 'f')) bits |= 0100;
    if (c == ' ') bits |= 0200;
    memory.store(classes + 1 + static_cast<std::uint32_t>(c), 1, bits);
  }
  auto define = [this](const char *name, std::uint32_t address) {
    a_name &entry = externals[eabi ? std::string(name) : std::string("_") + name];
    if (entry.definition == nullptr && entry.address == 0) entry.address = address;
  };
  define("_impure_ptr", pointer);
  define("_ctype_", classes);
  define("errno", errno_address);
}

void a_machine::link() {
  if (files.empty()) bad_file("nothing to run");
  for (IF_READER *file : files)
    read_options_of(file);
  for (IF_READER *file : files)
    enter_symbols(file);
  for (IF_READER *file : files)
    lay_out_symbols(file);
  place_host_objects();
  for (IF_READER *file : files)
    collect_initializers(file);
  for (IF_READER *file : files)
    for (const an_if_init &init : file->inits)
      if (name_of(init.symbol)->definition == init.symbol) fill_initial_value(init);
  for (IF_READER *file : files)
    for (IF_SYMBOL *symbol : file->globals) {
      a_name *name = name_of(symbol);
      if (name->definition == symbol && name->address != 0 && symbol->location != 0 &&
          is_constant_type(symbol->type))
        memory.map(name->address, name->size, a_memory::read_only);
    }
  // String literals get their places when the code that has them is prepared. A literal takes at
  // most 4 bytes of memory for each byte of its record.
  std::size_t room = 64;
  for (IF_READER *file : files)
    room += 4 * file->size_in_bytes();
  if (room > stack_low - static_end) bad_file("the program is too large for its memory");
  static_limit = static_end + static_cast<std::uint32_t>(room);
  memory.set_heap(static_limit, stack_low - 64);
}

std::uint32_t a_machine::place_of(const IF_SYMBOL *symbol) {
  a_name *name = name_of(symbol);
  if (name->address != 0) return name->address;
  if (symbol->has_pragma(fpk_QX_WEAK)) return 0;
  bad_file("no definition of " + std::string(symbol->name));
}

a_callee *a_machine::routine_of(const IF_SYMBOL *symbol) {
  a_name *name = name_of(symbol);
  if (name->callee != nullptr) return name->callee;
  if (a_callee *callee = find_routine(symbol->name)) return callee;
  // The fault comes when it is called, so that a program may refer to what it never uses.
  name->callee = callees.emplace_back(std::make_unique<a_callee>()).get();
  name->callee->name = symbol->name;
  name->callee->is_absent_weak = symbol->has_pragma(fpk_QX_WEAK);
  return name->callee;
}

std::uint32_t a_machine::address_of_callee(a_callee *callee) {
  if (callee->is_absent_weak) return 0;
  auto [place, is_new] = callee_addresses.try_emplace(
      callee, code_start + code_stride * static_cast<std::uint32_t>(callee_table.size()));
  if (is_new) callee_table.push_back(callee);
  return place->second;
}

a_callee *a_machine::callee_at(std::uint32_t address) {
  std::uint32_t index = (address - code_start) / code_stride;
  if (address < code_start || address % code_stride != 0 || index >= callee_table.size()) {
    char text[64];
    std::snprintf(text, sizeof text, "call of something that is no function (address 0x%x)",
                  address);
    fault(text);
  }
  return callee_table[index];
}

std::uint32_t a_machine::address_of(const std::string &name) {
  auto found = externals.find(name);
  return found == externals.end() ? 0 : found->second.address;
}
