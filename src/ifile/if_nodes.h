// The nodes of code trees: the vocabulary of opcodes, and the record that carries one node to the
// writer or from the reader. Trees are streams in prefix order: a node, then as many child trees as
// its opcode's arity says.
#ifndef IFILE_IF_NODES_H
#define IFILE_IF_NODES_H

#include <array>
#include <cstdint>

class TYPE;
class I_SYMTAB;
struct fkMDATA;

// Opcodes, by their numbers in the file.
enum a_node_op : std::uint8_t {
#define NODE_ROW(opcode, name, arity) op_##name = opcode,
#include "ifile/if_nodes.def"
};

inline constexpr int num_node_ops = 201;

struct a_node_info {
  const char *name;    // null: a hole, which is never written
  std::uint8_t arity;  // child trees behind the node, as readers count them
};
extern const std::array<a_node_info, num_node_ops> if_node_info;

// One node. The payload in use follows from the opcode; children are null while a stream is written
// node by node, and owned by whoever built the tree otherwise.
struct BASE_NODE {
  a_node_op op = op_NOP;
  TYPE *type = nullptr;  // result type; void for statements
  BASE_NODE *left = nullptr;
  BASE_NODE *right = nullptr;
  union {
    I_SYMTAB *symbol = nullptr;  // NAME
    std::uint64_t integer;       // ICON (low 32 bits), LCON (read by the sign of the type)
    const char *text;            // FCON, SCON, ICALL, UICALL, MCALL, UMCALL
    fkMDATA *member;             // FIELD
    std::uint32_t number;        // LABEL: label; SKIP: bytes; SWITCH: values
    std::int32_t num_vargs;      // CALL
  };
  std::uint32_t length = 0;       // SCON: bytes of text
  std::uint32_t eh_entry_id = 0;  // CALL, UCALL: exception table entry, 0 none
  TYPE *csu = nullptr;            // FIELD: the class that holds the member

  BASE_NODE() = default;
  BASE_NODE(a_node_op opcode, TYPE *result) : op(opcode), type(result) {}
};
using NODE = BASE_NODE;

#endif
