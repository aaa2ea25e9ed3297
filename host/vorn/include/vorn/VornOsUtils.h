/*
 * Copyright (C) 2026 Oru Camera. All rights reserved.
 *
 * Proprietary and confidential: use, copying and distribution only under a written
 * license agreement with Oru Camera. See the NOTICE file at the top of this tree.
 */

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
