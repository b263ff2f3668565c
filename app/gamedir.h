// The game directory, which every file the game reads or writes is found from.
#pragma once

extern char DataRoot[1024];

void setDataRootFromExecutable(const char *executablePath);
