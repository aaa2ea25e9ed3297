/*
 * Copyright (C) 2026 Oru Camera. All rights reserved.
 *
 * Proprietary and confidential: use, copying and distribution only under a written
 * license agreement with Oru Camera. See the NOTICE file at the top of this tree.
 */

/*
 * Out-of-line part of <android/binder_auto_utils.h>.
 */
#include <android/binder_auto_utils.h>
#include <errno.h>
#include <string.h>
#include <syslog.h>
#include <unistd.h>

namespace ndk::internal {

void closeWithError(int fd) {
    if (fd == -1) return;
    int ret = close(fd);
    if (ret != 0) {
        syslog(LOG_ERR, "Could not close FD %d: %s", fd, strerror(errno));
    }
}

}  // namespace ndk::internal
