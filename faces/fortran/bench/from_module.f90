! SPDX-License-Identifier: MIT
! The calls of call_time.f90 through the module.
module from_module
    use, intrinsic :: iso_c_binding, only: c_double, c_int
    use vaprix, only: hbpt, pcrit, tbph
    implicit none
contains
    real(c_double) function by_module(which, n, x, y) result(total)
        integer(c_int), intent(in) :: which, n
        real(c_double), intent(in) :: x(n), y(n)
        integer :: i
        total = 0
        select case (which)
        case (1)
            do i = 1, n
                total = total + hbpt(x(i), y(i))
            end do
        case (2)
            do i = 1, n
                total = total + tbph(x(i), y(i))
            end do
        case default
            do i = 1, n
                total = total + pcrit()
            end do
        end select
    end function
end module
