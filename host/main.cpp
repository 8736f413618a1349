// stolvane: the command line host.
#include "host/CommandLine.h"

int main(int argc, char** argv) { return pstolvane1::host::RunCommandLine(argc, argv); }
