// The ARP table comes from the kernel.
#pragma once

// The path; tests put their own file in its place.
extern const char* arpTablePath;
