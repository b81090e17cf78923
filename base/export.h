#pragma once

// Which side of each DLL boundary a declaration stands on: a library exports
// what it defines and everything else imports it.
#ifdef ZKCORE_BUILD
#define ZKCORE_API __declspec(dllexport)
#else
#define ZKCORE_API __declspec(dllimport)
#endif

#ifdef ZKSHELL_BUILD
#define ZKSHELL_API __declspec(dllexport)
#else
#define ZKSHELL_API __declspec(dllimport)
#endif
