// Replaced pieces of text, and positions in the text.
//
// The texts of a line form a tree: the line, the expansions that stand in it, the expansions inside
// these. The scanner only needs the way back from the text in which it is (parent and resume_loc),
// so that in a plain compilation a text is forgotten as soon as its end is passed, and its bytes
// may be used again. Only preprocessed output wants to walk over the whole tree at the end of the
// line; then the nodes are linked as they are made, in the order of the text. The way not taken is
// a marker byte over the first byte of each replaced piece with a hash table from places to
// replacements: it would have to be undone after each line and looked up at each use.

#include <algorithm>

#include "DIAG/error.h"
#include "driver/host_envir.h"
#include "driver/mem_manage.h"
#include "driver/switches.h"
#include "source/input_stack_internal.h"
#include "source/lexical.h"
#include "source/macro_internal.h"

a_source_line_modif *curr_text_modif;
a_source_line_modif *source_line_modif_list;
a_source_line_modif *last_source_line_modif_exited_while_skipping_white_space;
const char *delete_source_from_loc;

static a_source_line_modif *last_source_line_modif;
static a_source_line_modif *avail_source_line_modifs;

// Multibyte bytes counted so far in the line, so that a long line is counted once.
static const char *counted_from;
static const char *counted_to;
static std::size_t counted_followers;

// ---- The tree of texts -------------------------------------------------------------------------

static void free_modif_tree(a_source_line_modif *modif) {
  while (modif != nullptr) {
    a_source_line_modif *next = modif->next;
    free_modif_tree(modif->first_child);
    free_source_line_modif(modif);
    modif = next;
  }
}

void free_source_line_modif(a_source_line_modif *modif) {
  modif->next = avail_source_line_modifs;
  avail_source_line_modifs = modif;
}

// The scan leaves a text that may be an expansion of a macro, or enters it.
static void count_open_text(const a_source_line_modif *modif, int change) {
  if (modif->macro_id == nullptr) return;
  macro_def_of(modif->macro_id)->open_texts += static_cast<std::uint32_t>(change);
}

static void leave_texts_up_to(const a_source_line_modif *outer) {
  for (const a_source_line_modif *m = curr_text_modif; m != outer && m != nullptr; m = m->parent)
    count_open_text(m, -1);
}

void clear_source_line_modifs() {
  leave_texts_up_to(nullptr);
  curr_text_modif = nullptr;
  if (source_line_modif_list != nullptr) free_modif_tree(source_line_modif_list);
  source_line_modif_list = last_source_line_modif = nullptr;
  release_macro_text();
}

a_source_line_modif *alloc_source_line_modif() {
  a_source_line_modif *modif = avail_source_line_modifs;
  if (modif != nullptr)
    avail_source_line_modifs = modif->next;
  else
    modif = static_cast<a_source_line_modif *>(alloc_in_region(0, sizeof(a_source_line_modif)));
  *modif = {};
  return modif;
}

// Links modif behind the children of its parent, and drops those that it covers.
static void link_source_line_modif(a_source_line_modif *modif) {
  a_source_line_modif *parent = modif->parent;
  a_source_line_modif **link = parent != nullptr ? &parent->first_child : &source_line_modif_list;
  a_source_line_modif **last = parent != nullptr ? &parent->last_child : &last_source_line_modif;
  if (*last != nullptr && (*last)->loc < modif->loc) {
    link = &(*last)->next;  // the common case: text is replaced from left to right
  } else {
    while (*link != nullptr && (*link)->loc < modif->loc)
      link = &(*link)->next;
    free_modif_tree(*link);
  }
  *link = modif;
  modif->next = nullptr;
  *last = modif;
}

a_source_line_modif *add_source_line_modif(a_source_line_modif *parent, const char *loc,
                                           const char *resume_loc, const char *text_start,
                                           const char *text_end) {
  a_source_line_modif *modif = alloc_source_line_modif();
  modif->parent = parent;
  modif->loc = loc;
  modif->resume_loc = resume_loc;
  modif->text_start = text_start;
  modif->text_end = text_end;
  if (every_line_is_wanted()) link_source_line_modif(modif);
  return modif;
}

void end_deletion_at(const char *p) {
  static const char no_text[] = {'\0', tm_end_of_modif};
  if (delete_source_from_loc == nullptr || !every_line_is_wanted()) return;
  if (delete_source_from_loc == p) return;
  add_source_line_modif(curr_text_modif, delete_source_from_loc, p, no_text, no_text);
}

void delete_comment_from_output(const char *start, const char *end, bool leave_blank) {
  static const char no_text[] = {'\0', tm_end_of_modif};
  static const char blank[] = {' ', '\0', tm_end_of_modif};
  if (leave_blank)
    add_source_line_modif(curr_text_modif, start, end, blank, blank + 1)->flags = slm_blank;
  else
    add_source_line_modif(curr_text_modif, start, end, no_text, no_text);
}

std::uint32_t num_text_changes;

void free_modif_children(a_source_line_modif *modif) {
  free_modif_tree(modif->first_child);
  modif->first_child = modif->last_child = nullptr;
}

void enter_text_modif(a_source_line_modif *modif) {
  count_open_text(modif, 1);
  ++num_text_changes;
  curr_text_modif = modif;
  curr_char_loc = modif->text_start;
  pos_of_macro_invocation = modif->fixed_position;
}

const char *leave_text_modif() {
  a_source_line_modif *modif = curr_text_modif;
  if (delete_source_from_loc != nullptr) end_deletion_at(curr_char_loc);
  const char *resume = modif->resume_loc;
  count_open_text(modif, -1);
  ++num_text_changes;
  curr_text_modif = modif->parent;
  if (delete_source_from_loc != nullptr) delete_source_from_loc = resume;
  pos_of_macro_invocation =
      curr_text_modif != nullptr ? curr_text_modif->fixed_position : null_source_position;
  last_source_line_modif_exited_while_skipping_white_space = modif;
  if (!every_line_is_wanted()) {
    release_macro_text_from(modif->text_start);
    free_source_line_modif(modif);
  }
  return resume;
}

// ---- Inserted text -----------------------------------------------------------------------------

int inserted_text_depth;

void begin_inserted_text(const char *text, const a_source_position *pos,
                         a_saved_text_place *saved) {
  saved->char_loc = curr_char_loc;
  saved->delete_from = delete_source_from_loc;
  saved->text_modif = curr_text_modif;
  saved->inserted = {};
  saved->inserted.flags = slm_file_text | slm_stop_at_end;
  saved->inserted.text_start = text;
  saved->inserted.fixed_position = *pos;
  delete_source_from_loc = nullptr;
  ++inserted_text_depth;
  enter_text_modif(&saved->inserted);
}

void end_inserted_text(a_saved_text_place *saved) {
  --inserted_text_depth;
  leave_texts_up_to(&saved->inserted);
  delete_source_from_loc = saved->delete_from;
  curr_text_modif = saved->text_modif;
  curr_char_loc = saved->char_loc;
  pos_of_macro_invocation =
      curr_text_modif != nullptr ? curr_text_modif->fixed_position : null_source_position;
}

// ---- Positions ---------------------------------------------------------------------------------

// Where the search for a position in this line got to: behind which change of the text, and what
// the changes up to there come to. Positions mostly go up, so each change is passed once.
struct a_position_search {
  const char *loc;                 // null: nothing was searched in this line
  const an_orig_line_modif *last;  // the last change passed; null: none
  const char *base;                // start of the physical line
  long correction;                 // of the column
  std::uint32_t seq;
};
static a_position_search position_search;

void invalidate_column_cache() {
  counted_from = nullptr;
  position_search.loc = nullptr;
}

// The number of bytes in [from, to) that continue a multibyte character.
static std::size_t follower_bytes(const char *from, const char *to) {
  if (!multibyte_chars_in_source_enabled) return 0;
  if (counted_from != from || counted_to > to) {
    counted_from = counted_to = from;
    counted_followers = 0;
  }
  while (counted_to < to) {
    if (static_cast<unsigned char>(*counted_to) < 0x80) {
      ++counted_to;
      continue;
    }
    bool invalid;  // bytes that are no character count one by one
    const int length = f_mbc_length(counted_to, &invalid, true);
    if (invalid) {
      ++counted_to;
      continue;
    }
    counted_to += length;
    counted_followers += static_cast<std::size_t>(length - 1);
  }
  return counted_followers;
}

static bool loc_is_in_line(const char *loc) {
  return loc >= curr_source_line && loc < end_of_curr_source_line + 4;
}

// The position of a place in the line buffer: its physical line begins at the last splice in front.
static void position_in_line(const char *loc, a_source_position *pos) {
  a_position_search &search = position_search;
  if (search.loc == nullptr || loc < search.loc)
    search = {loc, nullptr, curr_source_line, 0, curr_seq_number};
  search.loc = loc;
  const an_orig_line_modif *m = search.last != nullptr ? search.last->next : orig_line_modif_list;
  for (; m != nullptr; search.last = m, m = m->next) {
    bool is_line_start =
        m->kind == olm_line_splice || m->kind == olm_trigraph_splice || m->kind == olm_newline;
    if (is_line_start ? m->loc > loc : m->loc >= loc) break;
    switch (m->kind) {
      case olm_trigraph:
        search.correction += 2;
        break;
      case olm_null_char:
        search.correction -= 1;
        break;
      case olm_line_splice:
      case olm_trigraph_splice:
        search.base = m->loc;
        search.correction = 0;
        search.seq = m->value;
        break;
      case olm_newline:
        search.base = m->loc + 2;
        search.correction = 0;
        search.seq = m->value;
        break;
    }
  }
  const char *base = search.base;
  if (base > loc) base = loc;  // on the two bytes that stand for a newline
  long column = search.correction + (loc + 1 - base) - static_cast<long>(follower_bytes(base, loc));
  pos->seq = search.seq;
  pos->column = static_cast<a_column_number>(std::clamp(column, 1L, 65535L));
}

void conv_line_loc_to_source_pos(const char *loc, a_source_position *pos) {
  *pos = null_source_position;
  if (loc_is_in_line(loc)) {
    position_in_line(loc, pos);
    return;
  }
  // In replaced text: the outermost text that fixes a position tells, since each inner one has
  // taken its own from there.
  for (const a_source_line_modif *m = curr_text_modif; m != nullptr; m = m->parent) {
    if (m->fixed_position.seq != 0 || (m->flags & slm_file_text) != 0) {
      *pos = m->fixed_position;
      return;
    }
  }
  if (pos_of_macro_invocation.seq != 0)
    *pos = pos_of_macro_invocation;
  else
    position_in_line(loc_is_in_line(curr_char_loc) ? curr_char_loc : curr_source_line, pos);
}
