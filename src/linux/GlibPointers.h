#pragma once

#include <memory>

#include <glib-object.h>

namespace tessara {

struct GlibFree {
  void operator()(gpointer memory) const { g_free(memory); }
};
/// Memory that GLib has allocated, usually text.
template <class Type = char>
using GlibMemory = std::unique_ptr<Type, GlibFree>;

struct ObjectUnref {
  void operator()(gpointer object) const { g_object_unref(object); }
};
/// One reference to a GObject.
template <class Object>
using ObjectPointer = std::unique_ptr<Object, ObjectUnref>;

struct ErrorFree {
  void operator()(GError* error) const { g_error_free(error); }
};
using ErrorPointer = std::unique_ptr<GError, ErrorFree>;

}  // namespace tessara
