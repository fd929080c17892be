; Prints a greeting and exits; it doesn't use the C library.
        section .data
msg     db      "Hello, world", 10
len     equ     $ - msg
nl      db      10

        section .text
        global  _start

_start:
        mov     eax, 4          ; write(1, msg, len)
        mov     ebx, 1
        mov     ecx, msg
        mov     edx, len
        int     0x80
        cmp     eax, 0          ; a short write isn't retried
        jl      fail
        mov     eax, 1          ; exit(0)
        xor     ebx, ebx
        int     0x80
fail:
        mov     eax, 1
        mov     ebx, 1
        int     0x80
