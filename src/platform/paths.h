// paths.h - where Tacto's files live on a Linux system: the help file beside
// the program or in the installed share directory, the settings file beside
// the program or in the user's configuration directory, and temporary files
// in the user's runtime or temporary directory.
#ifndef TACTO_PLATFORM_PATHS_H
#define TACTO_PLATFORM_PATHS_H

#include <string>

// The running program's directory with a trailing '/' ("" when unknown).
std::string program_dir();

// The help file: NAME.hlp beside the program (dir as program_dir gives it),
// else tacto.hlp in ../share/tacto/ from there; the first that can be read,
// else the one beside the program, so that a message names it.
std::string help_file_path(const std::string &dir, const std::string &name);

// The settings file: NAME.sys beside the program when that directory is
// writable, else tacto.sys in config_home()/tacto/ (beside the program
// again when no configuration directory is known).
std::string settings_file_path(const std::string &dir, const std::string &name);

// The user's configuration directory: $XDG_CONFIG_HOME when it is an
// absolute path, else $HOME/.config (the home directory from the password
// entry when HOME is unset); "" when neither is known. No trailing '/'.
std::string config_home();

// Creates the missing directories above a file, new ones private to the
// user (mode 0700). 1 when the file's directory exists afterwards.
int make_parent_dirs(const std::string &file);

// The directory for temporary files with a trailing '/': $XDG_RUNTIME_DIR,
// else $TMPDIR, else /tmp; the first that is a writable directory.
std::string temp_dir();

// A new empty file that only this user can read and write, made without a
// race (mkstemp) as PREFIX-XXXXXX in temp_dir(). Its path, or "" with errno
// set when it could not be made.
std::string make_temp_file(const std::string &prefix);

#endif
