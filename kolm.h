/// Every public header of Kolm, the platform's included. A host needs nothing else.
#pragma once

#include "KolmApi.h"
