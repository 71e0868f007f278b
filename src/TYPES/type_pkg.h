// The type package: the later stages' view of types, smaller than the front end's own.
//
// Types form one tree: each hangs below the type it is based on (a pointer below what it points to,
// an array below its element, the rest below the root), and equal types are one object. The
// generator translates front-end types into this form, the file writer walks the tree, and the file
// reader builds it again. All types of a package live in the package's memory until it is deleted.
#ifndef TYPES_TYPE_PKG_H
#define TYPES_TYPE_PKG_H

#include <cstddef>
#include <cstdint>
#include <map>
#include <string_view>
#include <type_traits>
#include <unordered_map>
#include <vector>

class TYPE;
class TYPE_PKG;

// A position in a source file. The file name is null or outlives the package.
struct PSN {
  const char *file = nullptr;
  std::uint64_t line = 0;    // 1-based
  std::uint64_t column = 0;  // 1-based
};

// What a list of the package's records is made of: a link at the end of each element.
struct fkPARAM {
  TYPE *type;
  std::int32_t
      param_kind;    // 0 function parameter, 1 template type, 2 non-type, 3 template template
  const char *text;  // empty for kinds 0 and 1
  fkPARAM *next;
};
struct fkETOR {
  std::int64_t value;
  const char *name;
  const PSN *psn;
  fkETOR *next;
};
struct fkBCLASS {
  TYPE *type;
  std::int32_t offset;  // bytes
  std::int32_t access;
  bool is_virtual;
  fkBCLASS *next;
};
struct fkADECL {
  std::int32_t value;
  fkADECL *next;
};
struct fkFFRIEND {
  const char *name;
  TYPE *type;
  fkFFRIEND *next;
};
struct fkTYPE_ELEM {
  TYPE *type;
  fkTYPE_ELEM *next;
};
struct fkMDATA {
  std::int32_t id;  // 1-based ordinal, set when the class is registered
  TYPE *type;
  const char *name;
  std::int32_t access;      // 0 public, 1 protected, 2 private
  std::int64_t bit_offset;  // from the start of the class
  std::int32_t bit_width;   // 0 for a plain member
  std::uint8_t storage_byte;
  bool is_bit_field;
  bool is_flag_a;  // always false in this stage
  bool is_flag_b;  // the member is a base class subobject
  const PSN *psn;
  fkMDATA *next;
};
struct fkSDATA {
  TYPE *type;
  const char *name;
  std::int32_t access;
  fkSDATA *next;
};
struct fkMFUNC {
  TYPE *type;
  const char *name;
  std::int32_t access;
  std::int32_t virtual_index;  // -1: not virtual
  bool flags[4];               // false, static, virtual, pure
  fkMFUNC *next;
};

// A list with its tail, so that adding is constant work.
template <typename ELEMENT>
struct a_type_list {
  ELEMENT *head = nullptr;
  ELEMENT *tail = nullptr;
  void append(ELEMENT *element) {
    element->next = nullptr;
    (tail != nullptr ? tail->next : head) = element;
    tail = element;
  }
};

// What a class, struct or union has beyond its size.
struct a_class_subpart {
  bool is_complete = false;
  bool is_lowered = false;
  bool is_struct_vector = false;
  std::int32_t vtable_count = 0;
  // These say that a list exists although it may be empty (a reader keeps what the file says).
  a_type_list<fkBCLASS> base_classes;
  a_type_list<fkADECL> access_decls;
  a_type_list<fkFFRIEND> friend_functions;
  a_type_list<fkTYPE_ELEM> friend_classes;
  a_type_list<fkTYPE_ELEM> nested_types;
  a_type_list<fkMDATA> data_members;
  fkMDATA **members_by_id = nullptr;  // of data_members, when member_with_id made it
  std::int32_t num_members = 0;       // in members_by_id
  a_type_list<fkSDATA> static_members;
  a_type_list<fkMFUNC> member_functions;
  a_type_list<fkPARAM> template_params;
};

class TYPE {
 public:
  enum KIND : std::uint8_t {
    VOID_KIND,
    INTEGRAL,
    FLOATING,
    FIXED_POINT,
    COMPLEX,
    POINTER,
    REFERENCE,
    QUALIFIED,
    TYPEDEF,
    ARRAY,
    PTR_TO_MEMBER,
    FUNCTION,
    ENUM,
    CLASS,
    STRUCT,
    UNION
  };
  enum IKIND : std::uint8_t {
    BOOL,
    SCHAR,
    UCHAR,
    WCHAR_T,
    SHORT,
    USHORT,
    INT,
    UINT,
    INT_ALIAS,
    UINT_ALIAS,
    LONG,
    ULONG,
    LLONG,
    ULLONG
  };
  enum FKIND : std::uint8_t { FLOAT, DOUBLE, LDOUBLE };
  enum CC_KIND : std::uint8_t { CC_DEFAULT = 0, CC_ALTERNATIVE = 10 };
  enum QUALIFIER : std::uint8_t {
    CONST_QUAL = 1,
    VOLATILE_QUAL = 2,
    PACKED_QUAL = 4,
    NEAR_QUAL = 8,
    FAR_QUAL = 16,
    IOPORT_QUAL = 32,
    RESTRICT_QUAL = 64,
    ONCHIP_QUAL = 128
  };

  // The types based on one type: buckets in order of their keys, each in order of insertion.
  struct BASED_TYPE_CONTAINER {
    struct a_bucket {
      std::vector<TYPE *> types;
      std::unordered_multimap<std::size_t, TYPE *> by_shape;  // of the types that may be shared
    };
    std::map<std::string_view, a_bucket> buckets;
  };
  class TYPE_TREE_ITERATOR;

  std::int32_t uid = 0;  // 0 until registered
  KIND kind = VOID_KIND;
  IKIND ikind = BOOL;                        // INTEGRAL
  FKIND fkind = FLOAT;                       // FLOATING
  CC_KIND cc_kind = CC_DEFAULT;              // FUNCTION
  std::uint8_t qualifiers = 0;               // QUALIFIED
  std::uint8_t binary_point = 0;             // FIXED_POINT
  bool explicit_sign = false;                // INTEGRAL
  bool is_boolean_int = false;               // INTEGRAL
  bool is_ptm_int = false;                   // INTEGRAL
  bool is_vararg = false;                    // FUNCTION
  bool is_prototyped = false;                // FUNCTION
  bool array_is_complete = false;            // ARRAY
  bool is_vector = false;                    // ARRAY
  bool enum_is_complete = false;             // ENUM
  bool typedef_is_lowered = false;           // TYPEDEF
  bool frozen = false;                       // complete: may be shared with an equal type
  bool is_cpp = false;                       // stems from C++
  bool written = false, referenced = false;  // of the file writer
  std::int32_t unit = 0;
  std::int32_t mark = 0;        // -1 once its parts are marked as referenced
  std::uint32_t alignment = 8;  // bits
  std::uint64_t size = 0;       // bits
  // What the type is built on: pointed-to, referred-to, qualified, named, element, member, return,
  // underlying or part type.
  TYPE *component = nullptr;
  TYPE *member_class = nullptr;     // PTR_TO_MEMBER
  std::int64_t element_count = 0;   // ARRAY
  const char *name_text = nullptr;  // TYPEDEF, ENUM and class kinds
  a_type_list<fkPARAM> params;      // FUNCTION
  a_type_list<fkETOR> enumerators;  // ENUM
  a_class_subpart *csu = nullptr;   // class kinds
  TYPE_PKG *pkg = nullptr;
  TYPE *stripped = nullptr;    // without typedefs and qualifiers; the type itself otherwise
  TYPE *pointer_to = nullptr;  // cache of mk_ptr
  TYPE *equiv = nullptr;       // representative, null: the type itself
  const PSN *psn = nullptr;
  std::string_view map_key;  // key in the base type's container; empty until asked for
  BASED_TYPE_CONTAINER *based = nullptr;

  bool is_class_kind() const { return kind >= CLASS; }
  bool is_udt() const { return kind >= ENUM; }
  const char *name() const { return name_text != nullptr ? name_text : ""; }
  std::uint64_t size_in_bytes() const { return (size + 7) / 8; }
  std::uint32_t align_in_bytes() const { return (alignment + 7) / 8; }
  std::uint64_t storage_size() const;  // bits, rounded up to a power of two for scalar kinds
  bool is_complete() const;
  bool is_lowered() const;
  bool is_signed() const;    // an integral type (through typedefs, qualifiers, enums) with a sign
  bool is_unsigned() const;  // one without
  bool is_bool() const;      // bool, or an integer type made to stand for one
  bool is_arithmetic() const;
  bool is_scalar() const;
  TYPE *elem_type() const;  // ARRAY: the element, with the qualifiers of the array put on it
  TYPE *stds() const;       // through typedefs
  TYPE *stqs() const;       // through qualifiers
  // The value that indexes the writer's table of type codes.
  unsigned ekind() const;
  std::string_view map_name();

  // Marks what the referenced types below this one need; see mark_refed_recur.
  void mark_refed_types();
  // With keep_all, marks every typedef, enum and class that is not lowered as referenced.
  void mark_named_types(bool keep_all);

 private:
  void mark_refed_recur();
  friend class TYPE_PKG;
};

// The representative of a type.
inline TYPE *find_type(TYPE *type) {
  while (type->equiv != nullptr)
    type = type->equiv;
  return type;
}

// Whether two types are equal in all that the file shows; class types are equal to themselves only.
bool exact_types(const TYPE *a, const TYPE *b);

// Ends the process with an internal error of the package.
[[noreturn]] void tp_die(const char *text);

// A pre-order walk over the types below a type, buckets by key, a bucket in order of insertion.
// Types added during the walk are met if their place lies ahead.
class TYPE::TYPE_TREE_ITERATOR {
 public:
  explicit TYPE_TREE_ITERATOR(TYPE *root);
  TYPE *next();  // null at the end

 private:
  struct a_place {
    BASED_TYPE_CONTAINER *container;
    std::map<std::string_view, BASED_TYPE_CONTAINER::a_bucket>::iterator bucket;
    std::size_t index;
  };
  std::vector<a_place> places;
  TYPE *current;
};

class TYPE_PKG {
 public:
  static bool abi;                            // EABI sizes and alignments
  static std::uint32_t wchar_t_size_in_bits;  // 16 unless changed
  static bool seen_enum_type, seen_small_enums, seen_bitfield;

  TYPE_PKG();
  ~TYPE_PKG();
  TYPE_PKG(const TYPE_PKG &) = delete;
  TYPE_PKG &operator=(const TYPE_PKG &) = delete;

  TYPE *root_type = nullptr;
  TYPE *basic_types[17] = {};  // bool to unsigned long long by IKIND, then the floating kinds
  TYPE *void_type = nullptr;
  TYPE *void_pointer_type = nullptr;
  std::int32_t unit = 1;

  // Makers. Each returns the one type of this shape, except that functions, enums and classes are
  // new objects which the caller completes and passes to type_frozen. Sizes and alignments are
  // bits.
  TYPE *mk_void() { return void_type; }
  TYPE *mk_int(TYPE::IKIND ikind, bool explicit_sign, std::uint64_t size, std::uint32_t align,
               bool is_boolean, bool is_ptm);
  TYPE *mk_int(TYPE::IKIND ikind, bool explicit_sign);
  TYPE *mk_boolean_int(TYPE *type);
  TYPE *mk_ptm_int(TYPE *type);
  TYPE *mk_fltpt(TYPE::FKIND fkind) { return basic_types[14 + fkind]; }
  TYPE *mk_fltpt(TYPE::FKIND fkind, std::uint64_t size, std::uint32_t align);
  TYPE *mk_fxtpt(TYPE *underlying, std::uint8_t binary_point, std::uint64_t size,
                 std::uint32_t align);
  TYPE *mk_complex(TYPE *part);
  TYPE *mk_ptr(TYPE *type);
  TYPE *mk_ptr(TYPE *type, std::uint64_t size, std::uint32_t align);
  TYPE *mk_ref(TYPE *type, std::uint64_t size = 32, std::uint32_t align = 32);
  TYPE *mk_qual(TYPE *type, unsigned bits);
  TYPE *mk_qual(TYPE *type, unsigned bits, std::uint64_t size, std::uint32_t align);
  TYPE *mk_ptm(TYPE *member, TYPE *member_class, std::uint64_t size, std::uint32_t align);
  TYPE *mk_array(TYPE *element, bool is_cpp, std::int64_t count, std::uint64_t size,
                 std::uint32_t align, bool complete, bool is_vector = false);
  TYPE *mk_func(TYPE *ret, bool is_cpp, bool prototyped, bool vararg, TYPE::CC_KIND cc_kind);
  TYPE *mk_enum(const char *name, TYPE *underlying, std::uint64_t size, std::uint32_t align,
                bool is_cpp);
  TYPE *mk_csu(TYPE::KIND kind, const char *name, std::uint64_t size, std::uint32_t align,
               bool complete, std::int32_t vtable_count, bool lowered, bool struct_vector,
               bool is_cpp);
  TYPE *mk_typedef(const char *name, bool is_cpp, TYPE *named, std::uint64_t size,
                   std::uint32_t align, bool lowered, const PSN *psn = nullptr);

  // Completes a type: *type becomes the one type of its shape, registered below its base.
  void type_frozen(TYPE **type);
  // Puts a frozen type below its base, or finds the equal one that is there.
  TYPE *register_type(TYPE *type, TYPE *base);
  void assign_uid(TYPE *type);
  // The parent of a type in the tree.
  TYPE *base_type(const TYPE *type) const;
  // Gives the basic types the sizes that the target options ask for.
  void update_basic_types();

  // Memory of the package, zeroed, kept until the package is deleted. Nothing in it is destroyed.
  void *alloc(std::size_t size);
  // The data member of a number (from 1, in the order of the list); null: there is none.
  fkMDATA *member_with_id(a_class_subpart *csu, std::int32_t id);
  template <typename RECORD>
  RECORD *alloc_record() {
    static_assert(std::is_trivially_destructible_v<RECORD>);
    return static_cast<RECORD *>(alloc(sizeof(RECORD)));
  }
  const char *keep_text(std::string_view text);

  // The key of a name: its last component when it is a mangled one.
  std::string_view demangle_type_name(std::string_view name);

 private:
  TYPE *new_type(TYPE::KIND kind, std::uint64_t size, std::uint32_t align);
  TYPE *freeze_below(TYPE *type, TYPE *base);
  void make_basic_types();
  std::int32_t next_uid = 1;
  std::uint32_t fake_counter = 0;
  char *block_next = nullptr;
  char *block_end = nullptr;
  std::vector<char *> blocks;
  std::vector<TYPE *> types_with_based;
  std::vector<TYPE *> free_types;  // discarded probes, taken again
  friend class TYPE;
};

// Whether a name is one that the package made for a tagless type.
bool is_fake_name(const char *name);

#endif
