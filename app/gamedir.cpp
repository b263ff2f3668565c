// The game directory: where the executable stands, and with it the datafile,
// the configuration and the log.
#include "app/gamedir.h"

#include <cstring>

char DataRoot[1024];

// Everything from the last separator on goes, the separator too; a bare
// name leaves the game directory empty.
void setDataRootFromExecutable(const char *executablePath)
{
    strncpy(DataRoot, executablePath, sizeof DataRoot - 1);
    DataRoot[sizeof DataRoot - 1] = 0;
    char *cut = nullptr;
    for (char *p = DataRoot; *p; p++)
        if (*p == '/' || *p == '\\')
            cut = p;
    if (cut)
        *cut = 0;
    else
        DataRoot[0] = 0;
}
