/*
 * Copyright (C) 2026 Oru Camera. All rights reserved.
 *
 * Proprietary and confidential: use, copying and distribution only under a written
 * license agreement with Oru Camera. See the NOTICE file at the top of this tree.
 */

/*
 * Vendor offline camera interface.
 */

package vendor.oru.hardware.camera.offlinecamera;

import android.hardware.camera.device.CameraMetadata;
import vendor.oru.hardware.camera.offlinecamera.IOfflineCameraSession;
import vendor.oru.hardware.camera.offlinecamera.IOfflineCameraSessionCallback;
import vendor.oru.hardware.camera.offlinecamera.IOfflineClientCallback;

/**
 * Offline camera service, published as "vendor.oru.hardware.camera.offlinecamera.
 * IOfflineCameraService/default" by the camera HAL process.
 */
@VintfStability
interface IOfflineCameraService {
    /** Operation modes that offline sessions accept. */
    int[] getSupportedOpModes();

    /**
     * Registers a buffer consumer. The producer in the camera process asks this client for
     * stream buffers and hands capture results back through the callback.
     */
    void registerClient(in int clientId, in IOfflineClientCallback callback);

    /** Drops a consumer registered with registerClient. */
    void unRegisterClient(in int clientId);

    /** Opens an offline processing session. The method name is part of the frozen interface. */
    IOfflineCameraSession openOfflineSeesion(
            in String clientSessionName, in IOfflineCameraSessionCallback callback);

    /** Static camera characteristics of the offline backend. */
    CameraMetadata getOfflineStaticCaps();
}
