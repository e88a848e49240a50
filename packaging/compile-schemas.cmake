# Makes the setting that enables the extension take effect, if the prefix is GNOME Shell's own: a setting is read from the folder
# with its schema. With DESTDIR, the files are only staged; in Debian, libglib2.0 has a trigger on the folder.
set(schemas "${CMAKE_INSTALL_PREFIX}/share/glib-2.0/schemas")
find_program(compiler glib-compile-schemas)
if(compiler AND "$ENV{DESTDIR}" STREQUAL "" AND EXISTS "${schemas}/org.gnome.shell.gschema.xml")
  execute_process(COMMAND "${compiler}" "${schemas}")
endif()
