// The shell that z_shell and z_debug shell run.
#pragma once

// Fixed: what the environment says comes from the other end of the line. Tests put their own in its place.
extern const char* shellProgram;
