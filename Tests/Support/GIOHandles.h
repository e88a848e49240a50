#pragma once

#include <gio/gio.h>

#include "DesktopSupport/System/GLibHandles.h"

namespace TestSupport {

/// Owners of GIO's types. Each gives up one reference.
template <typename T>
using ObjectHandle = std::unique_ptr<T, DesktopSupport::ReleasedBy<g_object_unref>>;
using NodeInfoHandle = std::unique_ptr<GDBusNodeInfo, DesktopSupport::ReleasedBy<g_dbus_node_info_unref>>;

/// Another owner of a GObject.
template <typename T>
ObjectHandle<T> shared(T* object) {
  g_object_ref(object);
  return ObjectHandle<T>(object);
}

}  // namespace TestSupport
