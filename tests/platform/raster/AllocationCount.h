/// Counts every operator new of this program and of the library in it.
#pragma once

extern int g_allocationCount;
