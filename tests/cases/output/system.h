#pragma once
#pragma GCC system_header
int in_system_header;
#pragma GCC poison nothing
