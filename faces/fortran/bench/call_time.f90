! SPDX-License-Identifier: MIT
! Nanoseconds a call from C, through the Fortran module and as an EXTERNAL procedure: states of region 1 and, as the
! dearest in proportion, a constant. The least of many runs in turn.
program call_time
    use, intrinsic :: iso_c_binding, only: c_double, c_int
    use, intrinsic :: iso_fortran_env, only: int64
    use from_module, only: by_module
    use vaprix, only: hbpt
    implicit none
    interface
        real(c_double) function from_c(which, n, x, y) bind(C)
            import :: c_double, c_int
            integer(c_int), intent(in) :: which, n
            real(c_double), intent(in) :: x(n), y(n)
        end function
    end interface
    real(c_double), external :: byname
    integer(c_int), parameter :: n = 1000
    character(5), parameter :: names(3) = ["HBPT ", "TBPH ", "PCRIT"]
    real(c_double) :: p(n), T(n), y(n), total(3)
    real :: least(3)
    integer(int64) :: start, finish
    integer(c_int) :: which, caller, run, i

    call random_number(p)
    call random_number(T)
    p = 15 + 85*p
    T = 280 + 330*T
    y = T
    print '(a)', "ns a call   from C    module  external   module/C  external/C"
    do which = 1, 3
        if (which == 2) y = [(hbpt(p(i), T(i)), i=1, n)]
        least = huge(least)
        do run = 1, 3000
            do caller = 1, 3
                call system_clock(start)
                select case (caller)
                case (1)
                    total(1) = from_c(which, n, p, y)
                case (2)
                    total(2) = by_module(which, n, p, y)
                case (3)
                    total(3) = byname(which, n, p, y)
                end select
                call system_clock(finish)
                least(caller) = min(least(caller), real(finish - start)/n)
            end do
        end do
        if (any(abs(total - total(1)) > 0)) error stop "not the same results"
        print '(a8, 3f10.2, 2f12.3)', names(which), least, least(2:3)/least(1)
    end do
end program
