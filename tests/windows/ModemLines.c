/* Wine takes nothing for a COM port that has no modem lines, and a pseudo-terminal has none. Preloaded
 * into Wine this gives each terminal lines that can be set, and are all asserted by the other side.
 *   gcc -shared -fPIC -o modem-lines.so ModemLines.c */
#define _GNU_SOURCE
#include <dlfcn.h>
#include <errno.h>
#include <linux/serial.h>
#include <stdarg.h>
#include <stddef.h>
#include <string.h>
#include <sys/ioctl.h>

typedef int (*ioctl_function)(int, unsigned long, void *);

/* What a terminal without modem lines would answer if it had some; -1 for all other requests. */
static int answer(unsigned long request, void *argument) {
    switch (request) {
        case TIOCMGET:
            *(int *)argument = TIOCM_CTS | TIOCM_DSR | TIOCM_CAR;
            return 0;
        case TIOCGICOUNT:
            memset(argument, 0, sizeof(struct serial_icounter_struct));
            return 0;
        case TIOCMSET:
        case TIOCMBIS:
        case TIOCMBIC:
        case TIOCSBRK:
        case TIOCCBRK:
            return 0;
        default:
            return -1;
    }
}

int ioctl(int file, unsigned long request, ...) {
    static ioctl_function system_ioctl;
    va_list arguments;
    va_start(arguments, request);
    void *argument = va_arg(arguments, void *);
    va_end(arguments);
    if (system_ioctl == NULL)
        system_ioctl = (ioctl_function)dlsym(RTLD_NEXT, "ioctl");
    const int result = system_ioctl(file, request, argument);
    const int unknown = result == -1 && (errno == ENOTTY || errno == EINVAL);
    return unknown ? answer(request, argument) : result;
}
