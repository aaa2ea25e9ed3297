/*
 * Vorn camera framework utilities: dynamic library mapping.
 */
#pragma once

namespace Vorn {
namespace OsUtils {

/* Maps the shared library at pPath; null when it cannot be mapped. */
void* LibMap(const char* pPath);

/* Address of pSymbol in a mapped library; null when absent. */
void* LibGetAddr(void* hLibrary, const char* pSymbol);

/* Unmaps a library mapped with LibMap; 0 on success. */
int LibUnmap(void* hLibrary);

}  // namespace OsUtils
}  // namespace Vorn
