"""What C lets a program repeat or nest, each as a source of which one thing grows.

SHAPES maps a name to a function of the size n that gives the lines of the source. Most are the
kind of thing that only generated code does; the cost of each must grow no faster than n, or end
in a message.
"""


def body(lines, head='void f(int a, int b, int *p)'):
    return [head + ' {'] + lines + ['}']


def repeat(text):
    """One line for each number, with @ for the number."""
    return lambda n: [text.replace('@', str(i)) for i in range(n)]


def inside(text, before='', after='', head='void f(int a, int b, int *p)'):
    return lambda n: body([before] + [text.replace('@', str(i)) for i in range(n)] + [after], head)


def chain(head, text, join, tail=';'):
    """One construct with n parts."""
    return lambda n: [head + join.join(text.replace('@', str(i)) for i in range(n)) + tail]


def chain_inside(head, text, join, tail=';'):
    return lambda n: body(chain(head, text, join, tail)(n))


def structs(n):
    return [f'struct s{i} {{' for i in range(n)] + ['int x;'] + [f'}} m{i};' for i in reversed(range(1, n))] + ['};']


def functions_returning(n):
    return ['int ' + '(*' * n + 'f' + ')(void)' * n + ';']


def parameter_nesting(n):
    return ['void f(' + 'int (*)(' * n + 'void' + ')' * n + ');']


def gotos(n):
    """Jumps out of and into blocks, each over the declarations of a few."""
    lines = []
    for i in range(n):
        lines += ['{', f'int v{i} = a; if (v{i}) goto l{(i * 7 + 3) % n};', f'l{i}: a++;', '}']
    return body(lines)


def forward_gotos(n):
    return body([f'if (a == {i}) goto end;' for i in range(n)] + ['end: ;'])


def variable_arrays(n):
    lines = [f'int v{i}[a];' for i in range(n)]
    return body(lines + [f'if (v{i}[0]) goto end;' for i in range(n)] + ['end: ;'])


def variable_blocks(n):
    return body([f'{{ int v[a]; if (v[0]) goto end; v[0] = {i}; }}' for i in range(n)] + ['end: ;'])


def knr(n):
    names = [f'p{i}' for i in range(n)]
    return [f'int f({", ".join(names)})'] + [f'int {name};' for name in names] + ['{ return p0; }']


def cases_nested(n):
    return body(['switch (a) {'] + [f'case {i}: {{ switch (b) {{ case 1: break; }} }}' for i in range(n)] + ['}'])


def case_ranges(n):
    return body(['switch (a) {'] + [f'case {i * 10} ... {i * 10 + 5}: b++; break;' for i in range(n)] + ['}'])


def case_backward(n):
    return body(['switch (a) {'] + [f'case {(n - i) * 3}: b++; break;' for i in range(n)] + ['}'])


def case_scattered(n):
    return body(['switch (a) {'] + [f'case {i * 7919 % 1000003}: b++; break;' for i in range(n)] + ['}'])


def anonymous_members(n):
    lines = ['struct s {'] + [f'union {{ int a{i}; struct {{ short b{i}, c{i}; }}; }};' for i in range(n)]
    return lines + ['} v;'] + body([f'v.c{i} = 1;' for i in range(n)])


def anonymous_nest(n):
    return ['struct s {' + 'struct {' * n + 'int x;' + '};' * n + '} v;', 'int f(void) { return v.x; }']


def member_access(n):
    return ['struct s { struct s *p; int x; } *v;', 'int f(void) { return v' + '->p' * n + '->x; }']


def designators_forward(n):
    return ['int t[] = {'] + [f'[{i}] = {i},' for i in range(n)] + ['};']


def designators_backward(n):
    return ['int t[] = {'] + [f'[{n - i}] = {i},' for i in range(n)] + ['};']


def designators_repeated(n):
    return ['int t[4] = {'] + [f'[{i % 4}] = {i},' for i in range(n)] + ['};']


def designated_members(n):
    lines = ['struct s {'] + [f'int m{i};' for i in range(n)] + ['} v = {']
    return lines + [f'.m{(i * 7 + 1) % n} = {i},' for i in range(n)] + ['};']


def local_initializer(n):
    return body(['int t[] = {'] + [f'a + {i},' for i in range(n)] + ['};'])


def local_designated(n):
    return body([f'int t[{n}] = {{'] + [f'[{n - 1 - i}] = a + {i},' for i in range(n)] + ['};'])


def structures_initialized(n):
    return ['struct s { int a; const char *b; struct { short c, d; } e; } t[] = {'] + \
        [f'{{ {i}, "text {i}", {{ 1, 2 }} }},' for i in range(n)] + ['};']


def flat_initialized(n):
    return ['struct s { int a, b; struct { short c, d[3]; } e; } t[] = {'] + \
        [f'{i}, 2, 3, 4, 5, 6,' for i in range(n)] + ['};']


def enumerators(n):
    return ['enum e {'] + [f'e{i},' for i in range(n)] + ['};']


def enumerators_chained(n):
    return ['enum e { e0,'] + [f'e{i} = e{i - 1} + 1,' for i in range(1, n)] + ['};']


def typedef_chain(n):
    return ['typedef int T0;'] + [f'typedef T{i} T{i + 1};' for i in range(n)] + [f'T{n} x; T{n} f(T{n} a) {{ return a + x; }}']


def typedef_pointers(n):
    return ['typedef int T0;'] + [f'typedef T{i} *T{i + 1};' for i in range(n)] + [f'T{n} x, y; void f(void) {{ x = y; }}']


def typedef_uses(n):
    """A chain of which every part is used."""
    return ['typedef int T0;'] + [f'typedef T{i} T{i + 1}; extern T{i + 1} v{i}; extern T{i + 1} v{i};' for i in range(n)]


def struct_chain(n):
    """Each structure holds the one before."""
    lines = ['struct s0 { int x; };'] + [f'struct s{i} {{ struct s{i - 1} m; }};' for i in range(1, n)]
    return lines + [f'struct s{n - 1} v;']


def struct_pointers(n):
    return [f'struct s{i} {{ struct s{i + 1} *next; int x; }} v{i};' for i in range(n)]


def macro_parameters(n):
    names = ', '.join(f'p{i}' for i in range(n))
    return [f'#define M({names}) p0 + p{n - 1}', 'int x = M(' + ', '.join(str(i) for i in range(n)) + ');']


def macro_parameters_used(n):
    names = ', '.join(f'p{i}' for i in range(n))
    return [f'#define M({names}) ' + ' + '.join(f'p{i}' for i in range(n)),
            'int x = M(' + ', '.join(str(i) for i in range(n)) + ');']


def paste_chain(n):
    return ['#define P(a) ' + '##'.join(['a'] * n), 'int P(x);']


def paste_steps(n):
    return [f'#define P{i}(a) P{i + 1}(a##x)' for i in range(min(n, 2000))] + [f'#define P{min(n, 2000)}(a) a', 'int P0(x);']


def stringize(n):
    return ['#define S(...) #__VA_ARGS__', 'const char *s = S(' + ' '.join(f'a{i} "b\\n",' for i in range(n)) + ');']


def macro_chain(n):
    return [f'#define M{i} M{i + 1}' for i in range(n)] + [f'#define M{n} 1', 'int x = M0;']


def macro_function_chain(n):
    return [f'#define M{i}(a) M{i + 1}(a)' for i in range(n)] + [f'#define M{n}(a) a', 'int x = M0(1);']


def macro_doubling(n):
    return ['#define D0 1,'] + [f'#define D{i} D{i - 1} D{i - 1}' for i in range(1, n.bit_length())] + \
        [f'int t[] = {{ D{n.bit_length() - 1} }};']


def recursion_stopped(n):
    return [f'#define N{i} (N{i})\nint N{i};' for i in range(n)]


def if_terms(n):
    return ['#if ' + ' && '.join(f'!defined(X{i})' for i in range(n)), 'int x;', '#endif']


def if_parentheses(n):
    return ['#if ' + '(' * n + '1' + ')' * n, 'int x;', '#endif']


def if_nested(n):
    return [f'#if {i} >= 0' for i in range(n)] + ['int x;'] + ['#endif'] * n


def elif_chain(n):
    return ['#if 0'] + [f'#elif N == {i + 1}\nint v{i};' for i in range(n)] + ['#endif']


def skipped(n):
    return ['#if 0'] + [f'#if A{i}\nint v{i};\n#else\n#define X {i}\n#endif' for i in range(n)] + ['#endif']


def splices(n):
    return ['int x = \\'] + ['1 + \\'] * n + ['1;']


def nested_pragma_diag(n):
    return ['#pragma GCC diagnostic push'] * n + ['int x;'] + ['#pragma GCC diagnostic pop'] * n


def pragma_pack_pairs(n):
    return [f'#pragma pack(push, 1)\nstruct s{i} {{ char a; int b; }};\n#pragma pack(pop)' for i in range(n)]


def asm_operands(n):
    return body([f'asm("nop");' for _ in range(n)])


def externs_local(n):
    return body([f'{{ extern int g; extern int h{i % 10}(int); g = h{i % 10}(1); }}' for i in range(n)])


def aliases(n):
    return ['int target(void) { return 1; }'] + [f'int alias{i}(void) __attribute__((alias("target")));' for i in range(n)]


def weak_references(n):
    return [f'extern int w{i}(void) __attribute__((weak));\nint u{i}(void) {{ return w{i} ? w{i}() : 0; }}' for i in range(n)]


def sections(n):
    return [f'int v{i} __attribute__((section(".section{i}"))) = {i};' for i in range(n)]


def calls_nested(n):
    return ['int g(int);', 'int f(int a) { return ' + 'g(' * n + 'a' + ')' * n + '; }']


def generic(n):
    types = ['char', 'short', 'int', 'long', 'float', 'double']
    return body([f'a = _Generic((a), {", ".join(f"{t}: {i}" for t in types)}, default: 0);' for i in range(n)])


def generic_types(n):
    lines = [f'struct s{i} {{ int x; }};' for i in range(n)]
    return lines + body(['a = _Generic((a), ' + ', '.join(f'struct s{i}: {i}' for i in range(n)) + ', int: 3);'])


def generic_nested(n):
    return body(['a = ' + '_Generic((a), default: ' * n + '1' + ')' * n + ';'])


def block_scopes(n):
    return body([f'{{ int a{i} = a; {{ int a{i} = b; b = a{i}; }} }}' for i in range(n)])


def functions_of_locals(n):
    return body([f'int v{i} = a;' for i in range(n)] + [f'b += v{i};' for i in range(n)])


def mutual_calls(n):
    return [f'static int s{i + 1}(int);\nstatic int s{i}(int a) {{ return s{i + 1}(a) + {i}; }}' for i in range(n)] + \
        [f'static int s{n}(int a) {{ return a; }}', 'int f(int a) { return s0(a); }']


def bit_fields(n):
    return ['struct s {'] + [f'unsigned b{i} : {i % 31 + 1};' for i in range(n)] + ['} v;'] + \
        body([f'v.b{i} = a;' for i in range(n)])


def function_type_doubling(n):
    """Each type mentions the one before twice."""
    return ['typedef void F0(void);'] + [f'typedef void F{i}(F{i - 1} *, F{i - 1} *);' for i in range(1, min(n, 60))] + \
        [f'extern F{min(n, 60) - 1} f, g; void h(void) {{ f(0, 0); {"f(0, 0); " * n} }} extern F{min(n, 60) - 1} f;']


def struct_doubling(n):
    """Each structure holds the one before twice."""
    last = min(n, 25)
    return ['struct s0 { char x; };'] + [f'struct s{i} {{ struct s{i - 1} a, b; }};' for i in range(1, last)] + \
        [f'struct s{last - 1} v, w; void f(void) {{ {"v = w; " * n} }}']


def literal_long(n):
    return ['const char s[] = "' + 'abcdefgh' * n + '";']


def literal_escapes(n):
    return ['const char s[] = "' + '\\x41\\n\\101\\u00e9' * n + '";']


def literal_wide(n):
    return ['const unsigned short s[] =', *(f'L"text {i}"' for i in range(n)), ';']


def identifier_long(n):
    return ['int ' + 'a' * n + ';', 'int f(void) { return ' + 'a' * n + '; }']


def comment_long(n):
    return ['/*' + ' * text\n' * n + '*/', 'int x;', '// ' + 'word ' * n]


def number_long(n):
    return ['double x = 0.' + '123456789' * n + ';', 'double y = 1' + '0' * n + 'e-' + str(n) + ';']


def else_if(n):
    return body([f'if (a == {i}) b++; else' for i in range(n)] + ['b--;'])


def loops_nested(n):
    return body(['for (a = 0; a < 2; a++) {'] * n + ['b++;'] + ['}'] * n)


def ifs_nested(n):
    return body(['if (a) {'] * n + ['b++;'] + ['} else b--;'] * n)


def switches_nested(n):
    return body(['switch (a) { case 1:'] * n + ['b++;'] + ['}'] * n)


def dowhile_nested(n):
    return body(['do'] * n + ['b++;'] + ['while (a);'] * n)


def bad_line(text):
    return lambda n: [text * n]


def computed_gotos(n):
    return body(['static void *t[] = {'] + [f'&&l{i},' for i in range(n)] + ['};', 'goto *t[a];'] + [f'l{i}: b++;' for i in range(n)])


def local_labels(n):
    return body([f'({{ __label__ l; if (a) goto l; b++; l: b--; }});' for _ in range(n)])


def attributes_long(n):
    return ['int x __attribute__((' + ', '.join(['unused'] * n) + '));']


def arrays_many(n):
    return [f'int a{i}[{i + 1}]; int (*p{i})[{i + 1}] = &a{i};' for i in range(n)]


def function_types(n):
    """Functions with as many parameters as their number, up to 60."""
    return [f'int f{i}({", ".join("char short int long float double".split()[(i >> j * 2) % 4 + (j % 2)] for j in range(10))});'
            for i in range(n)]


def cleanup(n):
    return ['void c(int *);'] + body([f'int v{i} __attribute__((cleanup(c))) = a;' for i in range(n)])


def inline_functions(n):
    return [f'static inline int i{i}(int a) {{ return a + {i}; }}' for i in range(n)] + \
        ['int f(int a) { return ' + ' + '.join(f'i{i}(a)' for i in range(0, n, 3)) + '; }']


def redeclared_arrays(n):
    return ['extern int a[];', 'int a[10];', 'extern int a[];'] * n


def composite(n):
    return [f'int f();\nint f(int (*)[], int);\nint f(int (*)[3], int);' for _ in range(n)]


def undeclared(n):
    return body([f'undeclared{i} = {i};' for i in range(n)])


def implicit_calls(n):
    return body([f'implicit{i}({i});' for i in range(n)])


def tags_incomplete(n):
    return [f'struct s{i}; extern struct s{i} *p{i}; struct s{i} *g{i}(struct s{i} *);' for i in range(n)]


def tentative_structs(n):
    return [f'struct s{i} v{i}; struct s{i} {{ int a; }};' for i in range(n)]


def tentative_arrays(n):
    return [f'int v{i}[];' for i in range(n)]


def statement_expressions(n):
    return body(['a = ' + '({' * n + 'b;' + '});' * (n - 1) + '});'])


def initializer_braces(n):
    return ['int x = ' + '{' * n + '1' + '}' * n + ';']


def compound_nested(n):
    return ['struct s { struct s *p; };', 'struct s *v = ' + '&(struct s){' * n + '0' + '}' * n + ';']


def functions_with_static(n):
    return [f'int f{i}(void) {{ static int s = {i}; static const char t[] = "x"; return s++ + t[0]; }}' for i in range(n)]


SHAPES = {
    'dimensions': lambda n: ['int a' + '[1]' * n + ';'],
    'pointers': lambda n: ['int ' + '*' * n + 'p;'],
    'pointers_const': lambda n: ['int ' + '*const ' * n + 'p;'],
    'specifiers': lambda n: ['const ' * n + 'int x = 1;'],
    'attributes': repeat('int x@ __attribute__((aligned(8), unused));'),
    'attribute_list': attributes_long,
    'attribute_specifiers': lambda n: ['int x ' + '__attribute__((unused)) ' * n + ';'],
    'declarators': chain('int ', '*d@[3]', ', '),
    'declarator_parentheses': lambda n: ['int ' + '(' * n + 'x' + ')' * n + ';'],
    'functions_returning': functions_returning,
    'parameters': chain('void f(', 'int p@', ', ', ');'),
    'parameters_defined': lambda n: ['int f(' + ', '.join(f'int p{i}' for i in range(n)) + ') { return p0; }'],
    'parameter_nesting': parameter_nesting,
    'knr': knr,
    'arguments': lambda n: ['int g();', 'int f(int a) { return g(' + ', '.join(['a'] * n) + '); }'],
    'members_of_structs': structs,
    'struct_chain': struct_chain,
    'struct_pointers': struct_pointers,
    'bit_fields': bit_fields,
    'anonymous_members': anonymous_members,
    'anonymous_nest': anonymous_nest,
    'member_access': member_access,
    'enumerators': enumerators,
    'enumerators_chained': enumerators_chained,
    'enums': repeat('enum e@ { a@, b@ = 5, c@ }; enum e@ v@ = b@;'),
    'typedef_chain': typedef_chain,
    'typedef_pointers': typedef_pointers,
    'typedef_uses': typedef_uses,
    'designators_forward': designators_forward,
    'designators_backward': designators_backward,
    'designators_repeated': designators_repeated,
    'designated_members': designated_members,
    'designator_chain': lambda n: ['struct s { int a[2]; } t[] = {'] +
                        [f'[{i}].a[1] = {i},' for i in range(n)] + ['};'],
    'range_designators': lambda n: ['int t[] = {'] + [f'[{i * 4} ... {i * 4 + 2}] = {i},' for i in range(n)] + ['};'],
    'range_designator_wide': lambda n: [f'int t[] = {{ [0 ... {n * 10}] = 1, [5] = 2 }};'],
    'structures_initialized': structures_initialized,
    'flat_initialized': flat_initialized,
    'local_initializer': local_initializer,
    'local_designated': local_designated,
    'initializer_braces': initializer_braces,
    'compound_literals': inside('p = (int[]){ a, @ }; p = &(int){ @ };'),
    'compound_literals_global': repeat('int *p@ = (int[]){ @, 2 };'),
    'compound_nested': compound_nested,
    'casts': lambda n: body(['b = ' + '(char)' * n + 'a;']),
    'unary': lambda n: body(['b = ' + '- ' * n + 'a;']),
    'dereferences': lambda n: ['int f(int ' + '*' * n + 'p) { return ' + '*' * n + 'p; }'],
    'subscripts': lambda n: body(['b = ' + 'p[' * n + 'a' + ']' * n + ';']),
    'parentheses': lambda n: body(['b = ' + '(' * n + 'a' + ')' * n + ';']),
    'parentheses_constant': lambda n: ['int x = ' + '(' * n + '1' + ')' * n + ';'],
    'binary_chain': chain_inside('b = ', 'a', ' + '),
    'binary_right': lambda n: body(['b = ' + 'a + (' * n + 'a' + ')' * n + ';']),
    'constant_chain': chain('int x = ', '@', ' + '),
    'logical_chain': chain_inside('b = ', 'a == @', ' || '),
    'logical_right': lambda n: body(['b = ' + 'a && (' * n + 'a' + ')' * n + ';']),
    'conditional_chain': lambda n: body(['b = ' + ' : '.join(f'a == {i} ? {i}' for i in range(n)) + ' : 0;']),
    'conditional_left': lambda n: body(['b = ' + '(' * n + 'a' + ' ? 1 : 2)' * n + ';']),
    'conditional_middle': lambda n: body(['b = ' + 'a ? ' * n + '1' + ' : 0' * n + ';']),
    'comma_chain': chain_inside('', 'a = @', ', '),
    'assignment_chain': lambda n: body(['a = ' * n + 'b;']),
    'calls_nested': calls_nested,
    'sizeof_nested': lambda n: body(['b = ' + 'sizeof ' * n + 'a;']),
    'string_pieces': lambda n: ['const char *s =', *(f'"text {i}\\n"' for i in range(n)), ';'],
    'string_pieces_line': chain('const char *s = ', '"text @"', ' '),
    'string_long': literal_long,
    'string_escapes': literal_escapes,
    'string_wide': literal_wide,
    'string_same': repeat('const char *s@ = "the same text";'),
    'identifier_long': identifier_long,
    'number_long': number_long,
    'comment_long': comment_long,
    'case_ranges': case_ranges,
    'case_backward': case_backward,
    'case_scattered': case_scattered,
    'cases_nested': cases_nested,
    'switches': inside('switch (a) { case 1: b++; break; default: b--; }'),
    'gotos': gotos,
    'forward_gotos': forward_gotos,
    'computed_gotos': computed_gotos,
    'local_labels': local_labels,
    'variable_arrays': variable_arrays,
    'variable_blocks': variable_blocks,
    'cleanup': cleanup,
    'statement_expressions': inside('b = ({ int t = a; t + @; });'),
    'statement_expressions_nested': statement_expressions,
    'generic': generic,
    'generic_types': generic_types,
    'generic_nested': generic_nested,
    'asm': asm_operands,
    'asm_file': repeat('asm("label@: nop");'),
    'asm_long': lambda n: ['asm('] + [f'"nop\\n"' for _ in range(n)] + [');'],
    'locals': functions_of_locals,
    'blocks': block_scopes,
    'blocks_nested': lambda n: body(['{ int a; '] * n + ['a = 1;'] + ['}'] * n),
    'static_locals': inside('static int s@ = @; { static int s@; s@++; }'),
    'functions_with_static': functions_with_static,
    'externs': lambda n: ['extern int x;'] * n,
    'prototypes': lambda n: ['int f(int a, char *b);'] * n,
    'prototypes_composite': composite,
    'arrays_redeclared': redeclared_arrays,
    'externs_local': externs_local,
    'typedefs_redeclared': lambda n: ['typedef struct s *T;'] * n,
    'aliases': aliases,
    'weak_references': weak_references,
    'sections': sections,
    'tentative': repeat('int t@; int t@; static int u@; static int u@;'),
    'tentative_structs': tentative_structs,
    'tentative_arrays': tentative_arrays,
    'tags_incomplete': tags_incomplete,
    'arrays_many': arrays_many,
    'function_types': function_types,
    'mutual_calls': mutual_calls,
    'inline_functions': inline_functions,
    'else_if': else_if,
    'ifs_nested': ifs_nested,
    'loops_nested': loops_nested,
    'switches_nested': switches_nested,
    'dowhile_nested': dowhile_nested,
    'empty_declarations': lambda n: [';'] * n,
    'empty_statements': inside(';'),
    'static_asserts': repeat('_Static_assert(sizeof(int) == 4, "text @");'),
    'labels_unused': inside('l@: a++;'),
    'macro_parameters': macro_parameters,
    'macro_parameters_used': macro_parameters_used,
    'macro_commas': lambda n: ['#define M(...) 1', 'int x = M(' + ',' * n + ');'],
    'macro_arguments_lines': lambda n: ['#define M(...) __VA_ARGS__', 'int t[] = { M('] + [f'{i},' for i in range(n)] + ['0) };'],
    'macro_parentheses': lambda n: ['#define M(x) x', 'int y = M(' + '(' * n + '1' + ')' * n + ');'],
    'macro_calls_nested': lambda n: ['#define M(x) x', 'int y = ' + 'M(' * n + '1' + ')' * n + ';'],
    'macro_chain': macro_chain,
    'macro_function_chain': macro_function_chain,
    'macro_doubling': macro_doubling,
    'macro_redefined': repeat('#define M @\n#undef M'),
    'macro_identical': lambda n: ['#define M(a) ((a) + 1)'] * n,
    'macro_self': recursion_stopped,
    'macro_body_long': lambda n: ['#define M ' + ' + '.join(str(i) for i in range(n)), 'int x = M;'],
    'macro_name_lines': lambda n: ['#define F(x) x', 'int y = F'] + [''] * n + ['(1);'],
    'paste_chain': paste_chain,
    'paste_steps': paste_steps,
    'pastes': lambda n: ['#define P(a, b) a##b'] + [f'int P(x, {i});' for i in range(n)],
    'stringize': stringize,
    'if_terms': if_terms,
    'if_parentheses': if_parentheses,
    'if_unary': lambda n: ['#if ' + '!' * n + '1', '#endif', 'int x;'],
    'if_conditional': lambda n: ['#if ' + '1 ? ' * n + '1' + ' : 0' * n, '#endif', 'int x;'],
    'if_nested': if_nested,
    'elif_chain': elif_chain,
    'skipped': skipped,
    'splices': splices,
    'blank_lines': lambda n: [''] * n + ['int x;'],
    'line_directives': repeat('#line 1@ "file@.c"\nint x@;'),
    'line_directives_same': repeat('#line 1@ "file.c"\nint x@;'),
    'function_type_doubling': function_type_doubling,
    'struct_doubling': struct_doubling,
    'functions_same_local': repeat('int f@(int a) { int i = a; static int s; return i + s; }'),
    'pragma_pack_push': lambda n: ['#pragma pack(push, 1)'] * n,
    'pragma_pack_pop': lambda n: ['#pragma pack(push, 1)'] * n + ['#pragma pack(pop)'] * n,
    'pragma_pack_pairs': pragma_pack_pairs,
    'push_macro_pairs': lambda n: ['#define M 1'] + ['#pragma push_macro("M")', '#pragma pop_macro("M")'] * n,
    'push_macro_all': lambda n: ['#define M 1'] + ['#pragma push_macro("M")'] * n + ['#pragma pop_macro("M")'] * n,
    'push_macro_names': repeat('#define M@ 1\n#pragma push_macro("M@")'),
    'diagnostic_push': nested_pragma_diag,
    'diagnostic_pairs': repeat('#pragma GCC diagnostic push\n#pragma GCC diagnostic ignored "-Wunused"\nint x@;\n#pragma GCC diagnostic pop'),
    'diag_suppress': repeat('#pragma diag_suppress 177\nint x@;\n#pragma diag_default 177'),
    'pragma_operator': repeat('_Pragma("pack(push, 1)") struct s@ { char c; int i; }; _Pragma("pack(pop)")'),
    'pragma_unknown': repeat('#pragma unknown @'),
    'pragma_weak': repeat('#pragma weak w@\nint w@(void) { return 1; }'),
    'pragma_weak_undeclared': repeat('#pragma weak w@'),
    'errors_line': bad_line('int x = "a"; '),
    'errors_lines': repeat('int x@ = undeclared@;'),
    'errors_redeclared': repeat('int x; char x;'),
    'warnings_lines': inside('p = @;'),
    'warnings_line': lambda n: body(['p = 1; ' * n]),
    'undeclared': undeclared,
    'implicit_calls': implicit_calls,
    'unbalanced_braces': lambda n: ['{' * n],
    'unbalanced_parentheses': lambda n: ['int x = ' + '(' * n],
    'unbalanced_brackets': lambda n: ['int x' + '[' * n],
    'unbalanced_closers': lambda n: [')' * n + '}' * n],
    'no_end_struct': lambda n: ['struct {'] * n,
    'characters_bad': lambda n: ['@' * n],
    'directives_bad': repeat('#unknown @'),
}
