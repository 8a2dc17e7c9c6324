#include <Filters/Preview/PresetShapes.h>

namespace QV::Filters {

const char* getSymbolShapes()
{
    return R"(
heart dx1=w*49/48; dx2=w*10/48; y1=t-hd3;
    T w/6 hd4 w*5/6 h*2/3;
    P M hc hd4 C hc+dx2 y1 hc+dx1 hd4 hc b hc-dx1 hd4 hc-dx2 y1 hc hd4 Z;
lightningBolt T w*8757/21600 h*7437/21600 w*13917/21600 h*14277/21600;
    P 21600x21600 M 8472 0 L 12860 6080 11050 6797 16577 12007 14767 12877 21600 21600 10012 14915 12222 13987
        5022 9705 7602 8382 0 3890 Z;
sun adj:25000; a=pin(12500,adj,46875); g0=50000-a; g1=g0*30274/32768; g2=g0*12540/32768;
    g10=(50000-g1)*3/4; g11=(50000-g2)*3/4; g12=g10+3662; g13=g11+3662; g14=g11+12500; i=g0*23170/32768;
    x10=w*g10/100000; x12=w*g12/100000; x13=w*g13/100000; x14=w*g14/100000;
    y10=h*g10/100000; y12=h*g12/100000; y13=h*g13/100000; y14=h*g14/100000;
    ox=w*3163/21600; oy=h*3163/21600;
    T hc-w*i/100000 vc-h*i/100000 hc+w*i/100000 vc+h*i/100000;
    P M r vc L r-x10 b-y14 r-x10 y14 Z M r-ox oy L r-x12 y13 r-x13 y12 Z M hc t L r-x14 y10 x14 y10 Z
        M ox oy L x13 y12 x12 y13 Z M l vc L x10 y14 x10 b-y14 Z M ox b-oy L x12 b-y13 x13 b-y12 Z
        M hc b L x14 b-y10 r-x14 b-y10 Z M r-ox b-oy L r-x13 b-y12 r-x12 b-y13 Z
        M w*a/100000 vc A w*g0/100000 h*g0/100000 cd2 21600000 Z;
moon adj:50000; a=pin(0,adj,87500); g0=ss*a/100000; g0w=g0*w/ss; g1=ss-g0; g2=g0*g0/g1; g3=ss*ss/g1;
    g7=g3-g2/2; g8=g7-g0; rx=g8*w/ss; ry=g8*hd2/ss; st=at2(w-g0w-rx,-hd2); sw=-2*st-21600000;
    g12=g0*9598/32768; g13=ss-g12; dy=sqrt(ss*ss-g13*g13)*hd2/ss;
    T g12*w/ss vc-dy g0w vc+dy;
    P M r b A w hd2 cd4 cd2 rx ry st sw Z;
smileyFace adj:4653; a=pin(-4653,adj,4653); @inEllipse;
    x1=w*4969/21600; y3=h*16515/21600; dy=h*a/100000; rx=w*1125/21600; ry=h*1125/21600;
    @bareEllipse;
    P darkless M w*6215/21600 h*7570/21600 A rx ry cd2 21600000 Z
        M w*13135/21600 h*7570/21600 A rx ry cd2 21600000 Z;
    P none M x1 y3-dy Q hc y3+dy*3 r-x1 y3-dy;
    @ellipseLine;
@cloud P 43200x43200 M 3900 14370 A 6753 9190 -11429249 7426832 5333 7267 -8646143 5396714
        4365 5945 -8748475 5983381 4857 6595 -7859164 7034504 5333 7273 -4722533 6541615
        6775 9220 -2776035 7816140 5785 7867 37501 6842000 6752 9215 1347096 6910353
        7720 10543 3974558 4542661 4360 5918 -16496525 8804134 4345 5945 -14809710 9151131 Z;
@cloudFolds P none 43200x43200 M 4693 26177 A 4345 5945 5204520 1585770 M 6928 34899 A 4360 5918 4416628
        686848
        M 16478 39090 A 6752 9215 8257449 844866 M 28827 34751 A 6752 9215 387196 959901
        M 34129 22954 A 5785 7867 -4217541 4255042 M 41798 15354 A 5333 7273 1819082 1665090
        M 38324 5426 A 4857 6595 -824660 891534 M 29078 3952 A 4857 6595 -8950887 1091722
        M 22141 4720 A 4365 5945 -9809656 1061181 M 14000 5192 A 6753 9190 -4002417 739161
        M 4127 15789 A 6753 9190 9459261 711490;
@inCloud T w*2977/21600 h*3262/21600 w*17087/21600 h*17337/21600;
cloud @inCloud; @cloud; @cloudFolds;
cloudCallout adj1:-20833; adj2:62500; dxPos=w*adj1/100000; dyPos=h*adj2/100000; xPos=hc+dxPos; yPos=vc+dyPos;
    ht=cat2(hd2,dxPos,dyPos); wt=sat2(wd2,dxPos,dyPos); dx=hc+cat2(wd2,ht,wt)-xPos;
        dy=vc+sat2(hd2,ht,wt)-yPos;
    away=mod(dx,dy,0); third=(away-ss*6600/21600)/3; r1=ss*600/21600; r2=ss*1200/21600; r3=ss*1800/21600;
    far=third+r3; near=ss*4800/21600+third*2;
    @inCloud; @cloud;
    P M xPos+r1 yPos A r1 r1 0 21600000 Z M far*dx/away+xPos+r2 far*dy/away+yPos A r2 r2 0 21600000 Z
        M near*dx/away+xPos+r3 near*dy/away+yPos A r3 r3 0 21600000 Z;
    @cloudFolds;
irregularSeal1 T w*4627/21600 h*6320/21600 w*16702/21600 h*13937/21600;
    P 21600x21600 M 10800 5800 L 14522 0 14155 5325 18380 4457 16702 7315 21097 8137 17607 10475 21600 13290
        16837 12942 18145 18095 14020 14457 13247 19737 10532 14935 8485 21600 7715 15627 4762 17617 5667
        13937
        135 14587 3722 11775 0 8615 4627 7617 370 2295 7312 6320 8352 2295 Z;
irregularSeal2 T w*5372/21600 h*6382/21600 w*14640/21600 h*15935/21600;
    P 21600x21600 M 11462 4342 L 14790 0 14525 5777 18007 3172 16380 6532 21600 6645 16985 9402 18270 11290
        16380 12310 18877 15632 14640 14350 14942 17370 12180 15935 11612 18842 9872 17370 8700 19712 7527
        18125
        4917 21600 4805 18240 1285 17825 3330 15370 0 12877 3935 11592 1172 8270 5372 7817 4502 3625 8550 6382
        9722 1887 Z;
chartX P bare M l t L r t r b l b Z; P none M l t L r b M l b L r t;
chartPlus P bare M l t L r t r b l b Z; P none M hc t L hc b M l vc L r vc;
chartStar P bare M l t L r t r b l b Z; P none M l t L r b M l b L r t M hc t L hc b;
)";
}

} // namespace QV::Filters
