#include "KolmVersion.h"

const char* KolmVersion()
{
    return KOLM_PROJECT_VERSION;
}
