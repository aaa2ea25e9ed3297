/*
 * Copyright (C) 2026 Oru Camera. All rights reserved.
 *
 * Proprietary and confidential: use, copying and distribution only under a written
 * license agreement with Oru Camera. See the NOTICE file at the top of this tree.
 */

/*
 * Registration of the benchmark groups. Every group registers pairs named
 * "<name>/library..." and "<name>/baseline...": the library's own path and the same work done
 * with only the calls that cannot be avoided (backend, mapper, client). bench_table.py pairs
 * them and prints the ratio.
 */
#pragma once

namespace offlinecamera::bench {

void RegisterBrokeringBenchmarks();
void RegisterSessionBenchmarks();
void RegisterOfflineRequestBenchmarks();

}  // namespace offlinecamera::bench
