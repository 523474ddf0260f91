! SPDX-License-Identifier: MIT
!
! Heat balance of a closed feedwater heater with desuperheating zone, condensing zone and drain cooler, given by its
! terminal temperature difference (saturation less feedwater outlet) and drain cooler approach (drain less feedwater
! inlet): steam taken from the turbine, and duty, temperatures and heat transfer coefficient times surface of each zone.
program feedwater_heater
    use vaprix, only: ecodetul, h1op, h2op, hopt, toph, top
    implicit none
    integer, parameter :: dp = kind(1d0)
    character(*), parameter :: zones(3) = ["desuperheating", "condensing    ", "drain cooling "]
    real(dp), parameter :: flow = 480, p_feed = 19, T_in = 453.15_dp       ! kg/s, MPa, K
    real(dp), parameter :: p_steam = 2.2_dp, T_steam = 613.15_dp           ! MPa, K
    real(dp), parameter :: terminal = 1.5_dp, approach = 5.6_dp            ! K
    real(dp) :: h_steam(4), T_hot(4), h_feed(4), T_feed(4)  ! at the ends of the zones, from the steam inlet
    real(dp) :: steam, duty(3), difference(4), mean(3)
    integer :: k

    T_hot(1) = T_steam
    T_hot(2:3) = checked(top(p_steam), "top")
    T_hot(4) = T_in + approach
    h_steam = [checked(hopt(p_steam, T_hot(1)), "hopt"), checked(h2op(p_steam), "h2op"), &
               checked(h1op(p_steam), "h1op"), checked(hopt(p_steam, T_hot(4)), "hopt")]

    T_feed(1) = T_hot(2) - terminal
    T_feed(4) = T_in
    h_feed(1) = checked(hopt(p_feed, T_feed(1)), "hopt")
    h_feed(4) = checked(hopt(p_feed, T_feed(4)), "hopt")
    steam = flow*(h_feed(1) - h_feed(4))/(h_steam(1) - h_steam(4))
    do k = 2, 3
        h_feed(k) = h_feed(k - 1) - steam/flow*(h_steam(k - 1) - h_steam(k))
        T_feed(k) = checked(toph(p_feed, h_feed(k)), "toph")
    end do

    duty = steam*(h_steam(:3) - h_steam(2:))  ! kW
    difference = T_hot - T_feed
    mean = (difference(:3) - difference(2:))/log(difference(:3)/difference(2:))
    print '(2(a, f7.2), a)', "feedwater", flow, " kg/s at", p_feed, " MPa"
    print '(2(a, f7.2), a)', "steam    ", steam, " kg/s at", p_steam, " MPa"
    print '(/a)', "zone             duty    steam         feedwater     mean difference     U A"
    print '(a)',  "                   kW     degC              degC                   K    kW/K"
    do k = 1, 3
        print '(a, f8.0, 2(f8.2, " ->", f7.2), f11.2, f8.1)', zones(k), duty(k), T_hot(k:k+1) - 273.15_dp, &
            T_feed(k+1:k:-1) - 273.15_dp, mean(k), duty(k)/mean(k)
    end do
    print '(a, f8.0, t59, f8.1)', "all           ", sum(duty), sum(duty/mean)

contains

    ! A result, or the end of the program with the code of its failure.
    real(dp) function checked(result, name)
        real(dp), intent(in) :: result
        character(*), intent(in) :: name
        if (result < -99998) then
            print '(2a, i7)', name, " fails with code", ecodetul()
            error stop
        end if
        checked = result
    end function
end program
