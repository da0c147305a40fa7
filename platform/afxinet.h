/// The internet session of the platform: the content of a URL as a file that is read line by line.
#pragma once

#include <afx.h>

#include "inet/CInternetException.h"
#include "inet/CInternetFile.h"
#include "inet/CInternetSession.h"
