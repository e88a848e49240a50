#pragma once

#include <wayland-util.h>

/// The interfaces as libwayland needs them, generated from the descriptions.
extern "C" {
// NOLINTBEGIN(readability-identifier-naming): the names that the scanner makes
extern const wl_interface wl_callback_interface;
extern const wl_interface wl_registry_interface;
extern const wl_interface org_kde_plasma_stacking_order_interface;
extern const wl_interface org_kde_plasma_window_interface;
extern const wl_interface org_kde_plasma_window_management_interface;
extern const wl_interface ext_foreign_toplevel_handle_v1_interface;
extern const wl_interface ext_foreign_toplevel_list_v1_interface;
extern const wl_interface zwlr_foreign_toplevel_handle_v1_interface;
extern const wl_interface zwlr_foreign_toplevel_manager_v1_interface;
// NOLINTEND(readability-identifier-naming)
}
