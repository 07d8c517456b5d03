#!/usr/bin/env python3
"""Makes exchanges as a script with pyserial would, and times each of them.

usage: pyserial_client.py DEVICE BAUD REQUEST REPLY
A line "N" on standard input makes N exchanges; the answer is one line of their times in
nanoseconds, -1 for one whose reply did not come in time. Lines go without their end mark.
"""
import sys
import time

import serial


def exchange(port, request, reply):
    begin = time.perf_counter_ns()
    port.write(request)
    line = port.read_until(b"\r")
    taken = time.perf_counter_ns() - begin
    if line.endswith(b"\r") and line != reply:
        sys.exit(f"pyserial got the reply {line!r}")
    return taken if line == reply else -1


def main():
    device, baud = sys.argv[1], int(sys.argv[2])
    request, reply = (text.encode() + b"\r" for text in sys.argv[3:5])
    for line in sys.stdin:
        with serial.Serial(device, baud, timeout=1) as port:
            port.reset_input_buffer()
            times = [exchange(port, request, reply) for _ in range(int(line))]
        print(*times, flush=True)


main()
