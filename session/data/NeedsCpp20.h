// Ends the compilation of a host at once, with one message, where its compiler is not told to take
// C++20. It would otherwise complain of nearly every line of the headers.
#pragma once

#if __cplusplus <= 201703L
// Of all directives only an include that is not found stops every compiler.
#include <pStolvane1 needs C++20: compile with -std=c++20>
#endif
