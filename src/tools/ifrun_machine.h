// ifrun: executes intermediate files. This header is the machine that its rooms share.
//
// The machine knows the file and nothing of the compiler: a flat 32-bit memory in the target's byte
// order, values by their types, code as trees. Every access, call and conversion is checked; what
// is wrong ends the run with the function, file and line.
#ifndef TOOLS_IFRUN_MACHINE_H
#define TOOLS_IFRUN_MACHINE_H

#include <cstdint>
#include <deque>
#include <memory>
#include <stdexcept>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "ifile/if_read.h"

// Exit statuses of ifrun itself; any other status is the program's own.
enum an_exit_status : int {
  status_usage = 2,
  status_limit = 124,    // the instruction budget is used up
  status_fault = 125,    // the program did something that the rules forbid
  status_bad_file = 126  // a file cannot be read, linked or run as it is
};

// A fault of the running program, or of the file.
struct a_run_error : std::runtime_error {
  int status;
  a_run_error(int exit_status, const std::string &what)
      : std::runtime_error(what), status(exit_status) {}
};
[[noreturn]] void fault(const std::string &what);     // the program's
[[noreturn]] void bad_file(const std::string &what);  // the file's

// Thrown by exit() and its kin.
struct a_program_exit {
  int status;
};

// How a value is held: integers and pointers extended to 64 bits by their sign, floating values as
// a double (a float is held as the double that equals it), classes by the address of the object.
union a_value {
  std::uint64_t i;
  double f;
};
inline a_value int_value(std::uint64_t i) {
  a_value v;
  v.i = i;
  return v;
}
inline a_value float_value(double f) {
  a_value v;
  v.f = f;
  return v;
}

enum a_value_class : std::uint8_t { vc_void, vc_int, vc_float, vc_double, vc_class, vc_function };

// What the machine must know of a type.
struct a_shape {
  a_value_class vclass = vc_void;
  std::uint8_t bytes = 0;  // of a scalar
  bool is_signed = false;
  bool is_bool = false;
  bool is_pointer = false;
  std::uint32_t align = 1;  // bytes
  std::uint32_t size = 0;   // bytes, of anything
};
a_shape shape_of(const TYPE *type);
// Cuts an integer to the width and sign of a shape.
std::uint64_t fit_integer(std::uint64_t value, const a_shape &shape);
// Converts a scalar; integers out of range and NaN follow the host's saturating rule.
a_value convert(a_value value, const a_shape &from, const a_shape &to);

// The flat memory. Each byte is unmapped, readable, or readable and writable.
class a_memory {
 public:
  explicit a_memory(std::uint32_t size);
  ~a_memory();
  a_memory(const a_memory &) = delete;
  a_memory &operator=(const a_memory &) = delete;

  bool big_endian = true;
  bool whole_words = false;  // an aligned word of which any byte is readable may be read
  enum a_state : std::uint8_t { unmapped = 0, read_only = 1, writable = 2 };
  void map(std::uint32_t address, std::uint32_t size, a_state state);
  // The bytes of a range, after the check that all may be read (or written).
  std::uint8_t *readable_range(std::uint32_t address, std::uint32_t size);
  std::uint8_t *writable_range(std::uint32_t address, std::uint32_t size);
  std::uint64_t load(std::uint32_t address, std::uint32_t bytes);
  void store(std::uint32_t address, std::uint32_t bytes, std::uint64_t value);
  // The same for a value of a shape.
  a_value load_value(std::uint32_t address, const a_shape &shape);
  void store_value(std::uint32_t address, const a_shape &shape, a_value value);
  std::uint8_t *raw(std::uint32_t address) { return bytes + address; }
  std::uint32_t size() const { return total; }
  std::string text_at(std::uint32_t address);  // up to the NUL
  void put_bytes(std::uint32_t address, const void *data, std::uint32_t size);

  // The heap.
  std::uint32_t heap_alloc(std::uint32_t size);  // 8-aligned; 0 when there is none
  void heap_free(std::uint32_t address);
  std::uint32_t heap_size(std::uint32_t address);  // of a live block; faults on others
  void set_heap(std::uint32_t start, std::uint32_t end);

 private:
  bool may_read_whole_word(std::uint32_t address, std::uint32_t size) const;
  [[noreturn]] void bad_access(std::uint32_t address, std::uint32_t size, bool writes);
  std::uint8_t *bytes;
  std::uint8_t *states;
  std::uint32_t total;
  std::uint32_t heap_next = 0, heap_end = 0;
  std::unordered_map<std::uint32_t, std::uint32_t> live_blocks;               // address to size
  std::unordered_map<std::uint32_t, std::vector<std::uint32_t>> free_blocks;  // by rounded size
};

struct a_routine_code;
class a_machine;

// One evaluated argument of a call. A class is given by its address.
struct an_argument {
  a_shape shape;
  a_value value;
};
using an_argument_list = std::vector<an_argument>;
// A routine of the host: gives its result in the shape that the call expects.
using a_host_routine = a_value (*)(a_machine &machine, const an_argument_list &arguments,
                                   const a_shape &result);

// A routine that can be called: code from a file, or a host routine.
struct a_callee {
  std::string name;
  a_routine_code *code = nullptr;
  a_host_routine host = nullptr;
  bool is_absent_weak = false;  // no file defines it, and it need not exist: its address is 0
};

// A node made ready for execution: names are addresses, types are shapes.
struct an_xnode {
  a_node_op op = op_NOP;
  a_shape shape;       // of the result
  a_shape work_shape;  // of the arithmetic in a compound assignment
  an_xnode *left = nullptr, *right = nullptr;
  union {
    a_value constant = {0};  // constants
    std::uint32_t address;   // NAME of a global, SCON
    std::int32_t offset;     // NAME of a local or parameter: bytes from the start of its part
    a_callee *callee;        // NAME of a routine, ICALL and its kin
  };
  enum a_name_kind : std::uint8_t {
    global_name,
    local_name,
    parameter_name,
    routine_name
  } name_kind = global_name;
  bool is_bit_field = false;          // STDOT, STREF
  std::uint8_t bit_width = 0;         // of the bit-field
  std::uint64_t bit_offset = 0;       // STDOT, STREF: from the class start
  std::uint32_t label = 0;            // LABEL
  std::uint32_t temp_offset = 0;      // class-valued call: where its result goes in the frame
  std::vector<an_xnode *> arguments;  // calls
  std::uint32_t fixed_arguments = 0;
  const char *text = nullptr;  // ICALL and its kin: the name
};

// One step of a routine.
using a_case_table = std::unordered_map<std::uint64_t, std::uint32_t>;  // value to step

struct a_step {
  enum a_kind : std::uint8_t { evaluate, branch, branch_if_zero, choose, leave } kind;
  an_xnode *node = nullptr;  // evaluated, tested, chosen by or returned
  std::uint32_t target = 0;  // step to go to; label until the routine is complete
  const PSN *psn = nullptr;
  a_case_table *cases = nullptr;  // of choose
};

struct a_parameter {
  std::int32_t offset = 0;
  a_shape shape;
};

struct a_routine_code {
  const an_if_function *function = nullptr;
  std::string name;
  bool is_prepared = false;
  bool has_varargs = false;
  std::vector<a_step> steps;
  std::vector<a_parameter> parameters;
  std::uint32_t frame_size = 0;      // of the locals and of temporaries, a multiple of 8
  std::uint32_t frame_align = 8;     // bytes
  std::uint32_t parameter_size = 0;  // of the named parameters
  a_shape result;
};

// One activation of a routine.
struct a_frame {
  a_routine_code *code;
  a_frame *caller;
  std::uint32_t base;          // address of the locals
  std::uint32_t arguments;     // address of the parameters, which those behind them follow
  std::uint32_t result_place;  // where a class result goes
  std::uint32_t step = 0;
  std::uint64_t id;
};

// Thrown by longjmp.
struct a_long_jump {
  std::uint32_t buffer;
  std::uint64_t frame_id;
  std::uint32_t step;
  int value;
};

class a_machine {
 public:
  a_machine(std::uint32_t memory_size, std::uint32_t stack_size);

  a_memory memory;
  bool eabi = false;
  int forced_byte_order = -1;  // 1 big, 0 little; -1: as the files say
  bool check_alignment = true;
  bool trace = false;
  std::uint64_t limit = 0;  // steps that may still be taken; counted down
  std::uint64_t taken = 0;

  // Linking.
  void add_file(IF_READER *file);
  void link();  // lays out memory, resolves names, fills initial values
  std::uint32_t address_of(const std::string &name);  // 0 when there is none
  a_callee *find_routine(const std::string &name);
  std::vector<a_callee *> initializers;  // routines that run before main, in order

  // Running.
  int run_main(const std::vector<std::string> &arguments);
  a_value call(a_callee *callee, const an_argument_list &arguments, const a_shape &result,
               std::uint32_t result_place);
  a_value call_address(std::uint32_t address, const an_argument_list &arguments,
                       const a_shape &result);
  a_callee *callee_at(std::uint32_t address);
  a_value evaluate(an_xnode *node);
  std::string where() const;  // the routine, file and line that run now, or where the fault was

  // State of the running program.
  a_frame *frame = nullptr;
  std::string error_place;  // of the fault that ends the run
  std::uint32_t stack_pointer = 0, stack_low = 0;
  std::unordered_map<std::uint32_t, a_long_jump> jump_buffers;
  std::unordered_map<std::uint32_t, int> returned_jumps;  // value that setjmp gives next
  std::vector<std::uint32_t> exit_routines;
  std::uint32_t errno_address = 0;
  std::uint32_t strtok_position = 0;   // address of the pointer that strtok keeps
  std::uint32_t standard_streams = 0;  // address of stdin, 8 bytes before stdout, 16 before stderr

  // Places of globals, for the rooms that link and prepare code.
  std::uint32_t place_of(const IF_SYMBOL *symbol);
  a_callee *routine_of(const IF_SYMBOL *symbol);
  std::uint32_t address_of_callee(a_callee *callee);
  std::uint32_t alloc_static(std::uint32_t size, std::uint32_t align, a_memory::a_state state);
  an_xnode *prepare_tree(const NODE *node, a_routine_code *code);
  std::uint32_t static_end = 0, static_limit = 0;  // of the static memory: used, and at most

 private:
  struct a_name {
    const IF_SYMBOL *definition = nullptr;
    std::uint32_t address = 0;
    std::uint32_t size = 0;
    a_callee *callee = nullptr;
    bool is_weak = false;
  };
  // Linking.
  void enter_definition(IF_SYMBOL *symbol, a_name *name);
  void enter_symbols(IF_READER *file);
  void lay_out_symbols(IF_READER *file);
  void collect_initializers(IF_READER *file);
  void read_options_of(IF_READER *file);
  a_name *name_of(const IF_SYMBOL *symbol);
  void fill_initial_value(const an_if_init &init);
  static std::uint32_t size_of_initial_value(const an_if_init &init);  // bytes that values reach
  void place_host_objects();
  // Preparing.
  void prepare(a_routine_code *code);
  void lay_out_frame(a_routine_code *code);
  void prepare_switch(const an_if_record_read &record, a_routine_code *code, a_step *step);
  void prepare_name(const NODE *node, a_routine_code *code, an_xnode *x);
  void prepare_call(const NODE *node, a_routine_code *code, an_xnode *x);
  void prepare_field(const NODE *node, an_xnode *x);
  std::uint32_t string_address(const NODE *node);
  an_xnode *new_xnode();
  // Running.
  a_value run(a_routine_code *code, const an_argument_list &arguments, std::uint32_t result_place);
  void place_arguments(a_routine_code *code, const an_argument_list &arguments);
  void run_steps();
  a_value finish(an_xnode *node);
  std::uint32_t place(an_xnode *node);
  a_value load_place(an_xnode *node);
  void store_place(an_xnode *node, a_value value);
  a_value load_bits(std::uint32_t base, const an_xnode *field);
  void store_bits(std::uint32_t base, const an_xnode *field, a_value value);
  a_value evaluate_binary(an_xnode *node);
  a_value arithmetic(a_node_op op, a_value a, a_value b, const a_shape &shape,
                     const a_shape &right_shape);
  a_value compare(an_xnode *node);
  a_value compound_assign(an_xnode *node, a_node_op op);
  a_value step_after(an_xnode *node, bool up);
  a_value evaluate_call(an_xnode *node);
  std::uint32_t copy_class(an_xnode *node);
  a_value intrinsic(an_xnode *node);
  a_value conversion(an_xnode *node);
  void count_step();

  std::vector<IF_READER *> files;
  std::unordered_map<std::string, a_name> externals;
  std::unordered_map<const IF_SYMBOL *, a_name> statics;
  std::unordered_map<const IF_SYMBOL *, const an_if_function *> bodies;
  std::unordered_map<const IF_SYMBOL *, std::int32_t> local_offsets;
  std::vector<std::unique_ptr<a_callee>> callees;
  std::vector<a_callee *> callee_table;  // by address
  std::unordered_map<a_callee *, std::uint32_t> callee_addresses;
  std::vector<std::unique_ptr<a_routine_code>> routines;
  std::vector<std::unique_ptr<an_xnode>> xnodes;
  std::deque<a_case_table> case_tables;
  std::uint64_t next_frame_id = 1;
  std::uint32_t frame_depth = 0;
  a_value result_value = {0};
};

// Where the routines' addresses lie: no data stands there.
inline constexpr std::uint32_t code_start = 0x1000;
inline constexpr std::uint32_t code_stride = 4;
inline constexpr std::uint32_t static_start = 0x100000;

// The type of the usual arithmetic conversions, and of the integral promotions.
a_shape usual_shape(const a_shape &a, const a_shape &b);
a_shape promoted_shape(const a_shape &shape);

// The host's library, by name as C writes it; null when the name is unknown.
a_host_routine find_host_routine(std::string_view name);

#endif
