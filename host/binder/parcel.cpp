/*
 * AParcel of the host libbinder_ndk. Calls stay in the process, so a parcel carries nothing.
 */
#include <android/binder_parcel.h>

struct AParcel {};

AParcel* AParcel_create() {
    return new AParcel();
}

void AParcel_delete(AParcel* parcel) {
    delete parcel;
}
