// What the rooms of input_stack share: the place in the file that is read, and the reserved text
// space.
#ifndef SOURCE_INPUT_STACK_INTERNAL_H
#define SOURCE_INPUT_STACK_INTERNAL_H

#include <cstring>

#include "source/input_stack.h"

// The rest of the current file: [curr_file_pos, curr_file_end). A newline and sixteen null bytes
// always stand at the end, so that block scans need no test for it.
extern const char *curr_file_pos;
extern const char *curr_file_end;

// Counts one physical line that has been read or passed over.
void count_physical_line();

// Is every line wanted as text (for preprocessed output, a listing or rule checks), so that none
// may be passed over in the image?
bool every_line_is_wanted();

// The report of a backslash that looks like a splice waits until the next line is read, since the
// line may end in a comment.
extern bool splice_warning_is_deferred;

// The end of the end-of-line comment or of the /* comment that starts at p, in the line buffer;
// reads on for the latter. Null at the end of all input.
const char *skip_line_comment(const char *p);
const char *skip_block_comment(const char *p);

// Closes a running deletion at p, in the current text.
void end_deletion_at(const char *p);
// A comment that is not to be seen in preprocessed output.
void delete_comment_from_output(const char *start, const char *end, bool leave_blank);

// The scan goes on in a text; at its end, behind the piece that it replaced (the place is given).
void enter_text_modif(a_source_line_modif *modif);
const char *leave_text_modif();
extern std::uint32_t num_text_changes;  // grows by each of these: two places belong together only
                                        // when it is the same
void free_modif_children(a_source_line_modif *modif);

a_source_line_modif *alloc_source_line_modif();
void free_source_line_modif(a_source_line_modif *modif);
// Forgets the texts that replace pieces of the line.
void clear_source_line_modifs();
void invalidate_column_cache();

extern int inserted_text_depth;  // texts of the program's own that are being read

void init_line_buffer();
void init_white_space();

// Reserved address space for a text that grows without moving, *size bytes of it; the size of what
// was got goes out.
char *reserve_text_space(std::size_t *size);
// Files are read anew from now on; what holds an image keeps it.
void forget_images();
// Of an earlier run in this process.
void forget_output_files();

// The least padding behind the text of a file image.
inline constexpr std::size_t image_padding = 64;

#endif
